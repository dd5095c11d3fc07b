#include "demo/instrument.h"

#include <algorithm>

namespace demo {

void Instrument::SetPrice(std::int64_t price, int now) {
  if (!is_open()) open = high = low = price;
  high = std::max(high, price);
  low = std::min(low, price);
  last = price;
  time = now;
  ++changes;
}

void Instrument::Trade(std::int64_t price, std::int64_t shares, int now) {
  SetPrice(price, now);
  volume += shares;
  cash += price * shares;
}

void Instrument::StartDay(int now) {
  previous = high = low = last;
  open = volume = cash = 0;
  time = now;
  ++changes;
}

}  // namespace demo
