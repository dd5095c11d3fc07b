#include "feed/wire_records.h"

#include <array>

#include "base/bytes.h"

namespace feed {
namespace {

template <typename T>
void Read(std::string_view bytes, std::size_t offset, T& field) {
  (void)base::ReadField(bytes, offset, field);
}

void ReadLevels(std::string_view bytes, std::size_t offset, std::array<float, 5>& levels) {
  for (float& level : levels) {
    Read(bytes, offset, level);
    offset += sizeof(float);
  }
}

inline void ReadQuote(std::string_view bytes, Cotizacion& quote) {
  quote.Codigo.assign(base::TextField(bytes, 0, 7));
  Read(bytes, 7, quote.valores.Maximo);
  Read(bytes, 11, quote.valores.Minimo);
  Read(bytes, 15, quote.valores.Ultimo);
  Read(bytes, 19, quote.valores.Volumen);
  Read(bytes, 23, quote.valores.Efectivo);
}

}  // namespace

void DecodeClock(std::string_view message, float& hora, float& fecha) {
  Read(message, 2, hora);
  Read(message, 6, fecha);
}

void DecodeQuote(std::string_view bytes, Cotizacion& quote) {
  // With the size known at compile time no field is tested.
  if (bytes.size() >= kQuoteSize) return ReadQuote({bytes.data(), kQuoteSize}, quote);
  ReadQuote(bytes, quote);
}

void DecodeTrade(std::string_view bytes, store::Negocio& trade) {
  trade.Lado = bytes.empty() ? ' ' : bytes[0];
  trade.Codigo.assign(base::TextField(bytes, 2, 5));
  Read(bytes, 7, trade.Hora);
  Read(bytes, 11, trade.Titulos);
  Read(bytes, 13, trade.Comprador);
  Read(bytes, 15, trade.Vendedor);
  Read(bytes, 17, trade.Precio);
}

void DecodeBook(std::string_view bytes, store::LibroOrdenes& book) {
  book.Codigo.assign(base::TextField(bytes, 0, 7));
  ReadLevels(bytes, 7, book.VolCompra);
  ReadLevels(bytes, 27, book.PrecioCompra);
  ReadLevels(bytes, 47, book.VolVenta);
  ReadLevels(bytes, 67, book.PrecioVenta);
  Read(bytes, 87, book.LibroExtra);
}

void DecodeMaster(std::string_view bytes, store::Instrumento& record) {
  record.Codigo.assign(base::TextField(bytes, 0, 7));
  Read(bytes, 7, record.Anterior);
  Read(bytes, 11, record.Maximo);
  Read(bytes, 15, record.Minimo);
  Read(bytes, 19, record.Ultimo);
  Read(bytes, 23, record.Volumen);
  Read(bytes, 27, record.Apertura);
  Read(bytes, 31, record.Efectivo);
  Read(bytes, 39, record.Fecha);
  Read(bytes, 43, record.Hora);
  std::string_view name = base::TextField(bytes, 47, 20);
  name = name.substr(0, name.find('\xFF'));
  record.Nombre.assign(name.substr(0, name.find('\xFE')));
}

}  // namespace feed
