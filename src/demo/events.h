#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "demo/instrument.h"

namespace demo {

/// One trade as the tape tells it.
struct TradeEvent {
  Code code;
  char side;  // 'C' the buyer took what was offered, 'V' the seller; else neither
  int time;   // HHMMSS
  std::int32_t shares;
  int buyer, seller;  // member numbers, 101 to 999 in a trade that counts
  float price;
};

/// The numbers of an instrument as they stood at one moment.
struct QuoteEvent {
  Code code;
  float high, low, last, volume;
  double cash;
};

/// What a quote record tells of an instrument.
[[nodiscard]] inline QuoteEvent QuoteOf(const Instrument& state) {
  return {state.code,
          state.Price(state.high),
          state.Price(state.low),
          state.Price(state.last),
          static_cast<float>(state.volume),
          state.Cash()};
}

/// What one step of the market brought, in order within each list. Slots are places in
/// Market::instruments().
struct Events {
  bool second = false;  // a new second began
  bool day = false;     // a new day began: all records are new
  std::vector<TradeEvent> trades;
  std::vector<QuoteEvent> quotes;
  std::vector<std::size_t> opened;  // slots of what had its first price of the day
  struct OptionQuote {
    std::size_t slot;
    QuoteEvent quote;
  };
  std::vector<OptionQuote> options;  // for those who asked for them
  std::vector<std::string> bulletins;

  void Clear() {
    second = day = false;
    trades.clear();
    quotes.clear();
    opened.clear();
    options.clear();
    bulletins.clear();
  }
};

}  // namespace demo
