#include "demo/wire.h"

#include <algorithm>

#include "base/bytes.h"

namespace demo::wire {
namespace {

using base::AppendField;

constexpr std::string_view kPageMark = "Pag";

void AppendVolumes(std::string& out, const OrderBook::Side& side) {
  for (const OrderBook::Level& level : side) AppendField(out, static_cast<float>(level.volume));
}

void AppendPrices(std::string& out, const Instrument& state, const OrderBook::Side& side) {
  for (const OrderBook::Level& level : side) AppendField(out, state.Price(level.price));
}

}  // namespace

std::string Clock(int time, int date) {
  std::string out = "ST";
  AppendField(out, static_cast<float>(time));
  AppendField(out, static_cast<float>(date));
  out.append(8, '\0');
  return out;
}

void AppendTrade(std::string& out, const TradeEvent& trade) {
  out += trade.side;
  out += ' ';
  out += trade.code.bytes().substr(0, 5);
  AppendField(out, static_cast<float>(trade.time));
  AppendField(out, static_cast<std::int16_t>(trade.shares));
  AppendField(out, static_cast<std::int16_t>(trade.buyer));
  AppendField(out, static_cast<std::int16_t>(trade.seller));
  AppendField(out, trade.price);
  out.append(4, '\0');
}

void AppendQuote(std::string& out, const QuoteEvent& quote) {
  out += quote.code.bytes();
  AppendField(out, quote.high);
  AppendField(out, quote.low);
  AppendField(out, quote.last);
  AppendField(out, quote.volume);
  AppendField(out, quote.cash);
}

void AppendBook(std::string& out, const Instrument& state, const OrderBook& book) {
  out += state.code.bytes();
  AppendVolumes(out, book.bids());
  AppendPrices(out, state, book.bids());
  AppendVolumes(out, book.asks());
  AppendPrices(out, state, book.asks());
  AppendField(out, state.Price(state.last));
}

void AppendMaster(std::string& out, const Instrument& state, int date) {
  out += state.code.bytes();
  AppendField(out, state.Price(state.previous));
  AppendField(out, state.Price(state.high));
  AppendField(out, state.Price(state.low));
  AppendField(out, state.Price(state.last));
  AppendField(out, static_cast<float>(state.volume));
  AppendField(out, state.Price(state.open));
  AppendField(out, state.Cash());
  AppendField(out, static_cast<float>(date));
  AppendField(out, static_cast<float>(state.time));
  out += state.name.bytes();
}

void Batches::Open() {
  // Room for the count, which stands in front.
  current_ = kind_ == Kind::kInstruments ? "99,00##"
             : kind_ == Kind::kTrades    ? "##,1:"
             : kind_ == Kind::kQuotes    ? "##,2:"
                                         : "##,3:";
  current_.reserve(8 + kMostRecords * 91);
}

void Batches::Close() {
  const std::size_t place = kind_ == Kind::kInstruments ? 5 : 0;
  current_[place] = static_cast<char>('0' + count_ / 10);
  current_[place + 1] = static_cast<char>('0' + count_ % 10);
  messages_.push_back(std::move(current_));
  current_.clear();
  count_ = 0;
}

void Batches::TakeInto(std::vector<std::string>& messages) {
  if (count_ > 0) Close();
  std::move(messages_.begin(), messages_.end(), std::back_inserter(messages));
  messages_.clear();
}

// The mark may begin in the record before.
bool Batches::LooksLikePage(std::size_t from) const {
  const std::size_t first = from - std::min(from, kPageMark.size() - 1);
  return std::string_view(current_).substr(first).find(kPageMark) != std::string_view::npos;
}

}  // namespace demo::wire
