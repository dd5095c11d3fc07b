#pragma once

#include <string>
#include <string_view>

#include "support/bytes.h"

// What a server sends, as bytes.
namespace support {

[[nodiscard]] inline std::string Plain(std::string_view text) {
  return std::string(text) + "\xFF\xFE";
}

[[nodiscard]] inline std::string Frame(std::string_view payload) {
  return std::string("\0AZ[", 4) + std::to_string(payload.size()) + "]" + std::string(payload);
}

[[nodiscard]] inline std::string Clock(float hora, float fecha) {
  return "ST" + F32(hora) + F32(fecha) + std::string(8, '\0');
}

struct TradeFields {
  char side = 'C';
  std::string_view code;
  float time = 93000;
  std::int16_t shares = 100, buyer = 101, seller = 999;
  float price = 10;
};

[[nodiscard]] inline std::string TradeRecord(const TradeFields& trade) {
  return std::string{trade.side, '?'} + Pad(trade.code, 5) + F32(trade.time) + I16(trade.shares) +
         I16(trade.buyer) + I16(trade.seller) + F32(trade.price) + "????";
}

struct QuoteFields {
  std::string_view code;
  float high = 0, low = 0, last = 0, volume = 0;
  double cash = 0;
};

[[nodiscard]] inline std::string QuoteRecord(const QuoteFields& quote) {
  return Pad(quote.code, 7) + F32(quote.high) + F32(quote.low) + F32(quote.last) +
         F32(quote.volume) + F64(quote.cash);
}

struct MasterFields {
  std::string_view code, name;
  float previous = 0, high = 0, low = 0, last = 0, volume = 0, opening = 0;
  double cash = 0;
  float date = 1000426, time = 93000;
};

[[nodiscard]] inline std::string MasterRecord(const MasterFields& master) {
  return Pad(master.code, 7) + F32(master.previous) + F32(master.high) + F32(master.low) +
         F32(master.last) + F32(master.volume) + F32(master.opening) + F64(master.cash) +
         F32(master.date) + F32(master.time) + Pad(master.name, 20);
}

/// A book whose 21 numbers are `first`, `first` + 1 and so on.
[[nodiscard]] inline std::string BookRecord(std::string_view code, float first) {
  std::string record = Pad(code, 7);
  for (int i = 0; i < 21; ++i) record += F32(first + static_cast<float>(i));
  return record;
}

}  // namespace support
