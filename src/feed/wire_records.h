#pragma once

#include <cstddef>
#include <string_view>

#include "store/instrument.h"
#include "store/instrument_store.h"
#include "store/trade.h"

// The binary records of market messages. A text field takes what is there of it, a number with a
// byte missing keeps its value.
namespace feed {

inline constexpr std::size_t kTradeSize = 25, kQuoteSize = 31, kMasterSize = 67, kBookSize = 91;
/// Clock message: "ST", time, date, 8 bytes that aren't read.
inline constexpr std::size_t kClockSize = 18;

struct Cotizacion {
  store::Codigo Codigo;
  store::InstrumentStore::Cotizacion valores;
};

void DecodeClock(std::string_view message, float& hora, float& fecha);
void DecodeQuote(std::string_view bytes, Cotizacion& quote);
void DecodeTrade(std::string_view bytes, store::Negocio& trade);
void DecodeBook(std::string_view bytes, store::LibroOrdenes& book);
/// The name ends before a byte 255 and before a byte 254.
void DecodeMaster(std::string_view bytes, store::Instrumento& record);

}  // namespace feed
