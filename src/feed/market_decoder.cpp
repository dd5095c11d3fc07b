#include "feed/market_decoder.h"

#include <algorithm>
#include <cstddef>
#include <string>

#include "base/masks.h"
#include "base/text.h"
#include "base/val.h"

namespace feed {
namespace {

using base::Mid;

constexpr float kFechaMin = 990104, kFechaMax = 1200104;  // both excluded

struct Batch {
  std::string_view records;
  int count;
};

Batch ShortBatch(std::string_view message) {
  return {Mid(message, 6), base::ValInteger<int>(Mid(message, 1, 2)).value_or(0)};
}

// Calls `take` with the bytes of each record, the last one perhaps cut, until it returns false. A
// record of which nothing is there ends the batch.
template <typename Take>
[[nodiscard]] bool ForEachRecord(const Batch& batch, std::size_t size, const Take& take) {
  std::string_view records = batch.records;
  for (int i = 0; i < batch.count && !records.empty(); ++i) {
    if (!take(records.substr(0, size))) return false;
    records.remove_prefix(std::min(size, records.size()));
  }
  return true;
}

bool AllDigits(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

// Captions of the clock; "" leaves the caption as it was.
std::string HoraCaption(float hora) {
  std::string text = base::NumberText(hora);
  if (!AllDigits(text)) return {};
  if (text.size() == 5) text.insert(0, 1, '0');
  if (text.size() != 6) return {};
  return text.substr(0, 2) + ':' + text.substr(2, 2) + ':' + text.substr(4, 2);
}

std::string FechaCaption(float fecha) {
  const std::string text = base::NumberText(fecha);
  if (!AllDigits(text)) return {};
  if (text.size() == 7) return text.substr(5) + '-' + text.substr(3, 2) + "-20" + text.substr(1, 2);
  // One digit short on purpose: the last one isn't shown.
  if (text.size() == 6) return text.substr(3, 2) + '-' + text.substr(1, 2) + "-0" + text[0];
  return {};
}

// What a quote changes in a record.
void CopiarCotizacion(const store::Instrumento& from, store::Instrumento& to) {
  to.Maximo = from.Maximo;
  to.Minimo = from.Minimo;
  to.Ultimo = from.Ultimo;
  to.Volumen = from.Volumen;
  to.Efectivo = from.Efectivo;
  to.Fecha = from.Fecha;
  to.Hora = from.Hora;
  to.Medio = from.Medio;
  to.Saldo = from.Saldo;
}

}  // namespace

MarketDecoder::MarketDecoder(store::InstrumentStore& store, store::UpdatePipeline& pipeline,
                             Strip strip)
    : store_(store), pipeline_(pipeline), strip_(strip) {}

void MarketDecoder::Proces(std::string_view message) {
  if (message.size() == kClockSize && message.starts_with("ST")) return Reloj(message);
  const std::int32_t before = contador_records_;
  Lotes(message);
  // Once a message: nobody can look in between.
  if (contador_records_ != before)
    strip_.LT.set_tool_tip(base::NumberText(std::int64_t{contador_records_}));
}

void MarketDecoder::Reloj(std::string_view message) {
  DecodeClock(message, store_.MercadoHora, store_.MercadoFecha);
  if (const std::string text = HoraCaption(store_.MercadoHora); !text.empty()) {
    strip_.LT.set_caption(text);
  }
  if (const std::string text = FechaCaption(store_.MercadoFecha); !text.empty()) {
    strip_.LF.set_caption(text);
  }
}

// A message can be a batch of more than one kind: the tests don't exclude one another.
void MarketDecoder::Lotes(std::string_view message) {
  const std::string_view kind = Mid(message, 3, 3);
  if (kind == ",1:") Negocios(message);
  if (Mid(message, 4, 1) == "3") Libros(message);
  if (kind == ",2:" && !Cotizaciones(message)) return;
  if (message.starts_with("99,")) Maestros(message);
}

void MarketDecoder::Negocios(std::string_view message) {
  (void)ForEachRecord(ShortBatch(message), kTradeSize, [this](std::string_view bytes) {
    DecodeTrade(bytes, negocio_scratch_);
    if (steps.Negocio) steps.Negocio(negocio_scratch_);
    return true;
  });
  if (steps.FinNegocios) steps.FinNegocios();
}

void MarketDecoder::Libros(std::string_view message) {
  (void)ForEachRecord(ShortBatch(message), kBookSize, [this](std::string_view bytes) {
    DecodeBook(bytes, store_.LibroScratch);
    const int index = store_.GuardarLibro(store_.LibroScratch);
    if (index > 0 && steps.RefrescarLibro) steps.RefrescarLibro(index);
    return true;
  });
}

bool MarketDecoder::Cotizaciones(std::string_view message) {
  return ForEachRecord(ShortBatch(message), kQuoteSize, [this](std::string_view bytes) {
    contador_records_ = base::CheckedIncrement(contador_records_);
    DecodeQuote(bytes, cotizacion_scratch_);
    // Looked up by the bytes of the wire: a code just written is slow to read again.
    const std::string_view code = bytes.substr(0, cotizacion_scratch_.Codigo.bytes().size());
    return AplicarCotizacion(cotizacion_scratch_, store_.Recorrer(code));
  });
}

bool MarketDecoder::AplicarCotizacion(const Cotizacion& quote,
                                      const store::InstrumentStore::Scan& scan) {
  // One request for each nameless slot that the scan passes; those that don't fit into the send
  // buffer are left out.
  for (int n = scan.nameless; n > 0 && PedirMaestro(quote.Codigo); --n) {
  }
  if (scan.slot == 0 || !(quote.valores.Ultimo > 0)) return CodigoDesconocido(quote.Codigo);
  const store::Instrumento& record = store_.Instrumentos(scan.slot);
  // Copied before the update: a record just written is slow to read as a whole.
  store_.InstrumentoScratch = record;
  store_.GuardarCotizacion(scan.slot, quote.valores);
  CopiarCotizacion(record, store_.InstrumentoScratch);
  pipeline_.RefrescarInstrumento(scan.slot);
  return true;
}

// The two balance codes enter the table by themselves; any other unknown code ends its batch.
bool MarketDecoder::CodigoDesconocido(const store::Codigo& code) {
  const std::string_view bytes = code.bytes();
  if (bytes.starts_with("I ")) PedirMaestro(code);
  if (bytes == "STSV   ") store_.AgregarSinDatos(code, "ST SALDO VENDEDOR");
  if (bytes == "STSC   ") store_.AgregarSinDatos(code, "ST SALDO COMPRADOR");
  if (!bytes.starts_with("ST")) return false;
  PedirMaestro(code);
  return true;
}

void MarketDecoder::Maestros(std::string_view message) {
  const std::string_view records = Mid(message, 8);
  const std::int64_t count = base::ValInteger<std::int32_t>(Mid(message, 4, 4)).value_or(0);
  if (count * static_cast<std::int64_t>(kMasterSize) > static_cast<std::int64_t>(records.size())) {
    if (steps.SesionPerdida) steps.SesionPerdida();
    return;
  }
  (void)ForEachRecord({records, static_cast<int>(count)}, kMasterSize,
                      [this](std::string_view bytes) {
                        contador_records_ = base::CheckedIncrement(contador_records_);
                        DecodeMaster(bytes, store_.InstrumentoScratch);
                        AplicarMaestro(store_.InstrumentoScratch);
                        return true;
                      });
  std::string caption("Instrumentos: ");
  base::AppendNumberText(caption, store_.NumInstrumentos());
  strip_.Label2.set_caption(caption);
}

void MarketDecoder::AplicarMaestro(store::Instrumento& record) {
  if (!(record.Fecha > kFechaMin && record.Fecha < kFechaMax)) return;
  store::Derivar(record);
  if (record.Codigo[0] == ' ') return;
  const std::int16_t slot = store_.GuardarMaestro(record);
  if (slot > 0) pipeline_.RefrescarInstrumentoCarga(slot);
}

bool MarketDecoder::PedirMaestro(const store::Codigo& code) {
  return steps.EnviarTexto && steps.EnviarTexto(std::string("C:").append(code.bytes()));
}

}  // namespace feed
