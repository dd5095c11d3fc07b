#include "demo/tape_clerk.h"

#include <algorithm>
#include <iterator>

#include "demo/session_clock.h"

namespace demo {
namespace {

constexpr int kTradesPerLateOne = 40, kTradesPerCross = 120;
constexpr int kMostLate = 5;      // seconds before the trade told last
constexpr int kStillLately = 30;  // a trade told earlier than so many seconds ago is forgotten

struct Stray {
  int TradeEvent::*field;
  int value;
};
constexpr Stray kStrays[] = {
    {&TradeEvent::time, 80'000},  {&TradeEvent::buyer, 100},  {&TradeEvent::seller, 1000},
    {&TradeEvent::time, 235'900}, {&TradeEvent::buyer, 1000}, {&TradeEvent::seller, 100},
    {&TradeEvent::time, 0},       {&TradeEvent::buyer, -1},   {&TradeEvent::seller, 0},
};

bool MayBeLate(int last_told, int now) {
  return SecondOf(last_told) - kMostLate >= SessionClock::kOpening &&
         SecondOf(now) - SecondOf(last_told) <= kStillLately;
}

}  // namespace

void TapeClerk::Tell(const Instrument& state, const Execution& trade, int last_told,
                     std::vector<TradeEvent>& tape) {
  TradeEvent told = {.code = state.code,
                     .side = trade.bought ? 'C' : 'V',
                     .time = state.time,
                     .shares = trade.shares,
                     .buyer = Member(),
                     .seller = Member(),
                     .price = state.Price(state.last)};
  if (last_told == kNever) {
    told.side = ' ';
  } else if (random_.OneIn(kTradesPerCross)) {
    told.side = 'A';
    told.seller = told.buyer;
  } else if (random_.OneIn(kTradesPerLateOne) && MayBeLate(last_told, state.time)) {
    told.time = TimeOf(SecondOf(last_told) - random_.Between(1, kMostLate));
  }
  tape.push_back(told);
}

void TapeClerk::TellStray(const Instrument& state, std::vector<TradeEvent>& tape) {
  const Stray& stray = kStrays[strays_++ % std::size(kStrays)];
  tape.push_back({.code = state.code,
                  .side = random_.OneIn(2) ? 'C' : 'V',
                  .time = state.time,
                  .shares = random_.Between(1, 500),
                  .buyer = Member(),
                  .seller = Member(),
                  .price = state.Price(state.last)});
  tape.back().*stray.field = stray.value;
}

// A few members do most of the business.
int TapeClerk::Member() {
  const int rank = std::min(members_.Below(70), members_.Below(70));
  return 101 + rank * 37 % 898;
}

}  // namespace demo
