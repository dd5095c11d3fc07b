#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "feed/strip.h"
#include "feed/wire_records.h"
#include "store/instrument_store.h"
#include "store/trade.h"
#include "store/update_pipeline.h"

namespace feed {

/// Takes every message that the dispatcher didn't claim as a batch of fixed binary records: the
/// server clock, trades, order books, quotes and instrument masters. Writes the store and runs the
/// update pipeline record by record. Any bytes are fine: what doesn't fit is skipped.
class MarketDecoder {
 public:
  struct Steps {
    std::function<bool(std::string_view text)> EnviarTexto;  // false when it didn't go out
    std::function<void(int index)> RefrescarLibro;           // a book has been stored
    std::function<void(const store::Negocio& negocio)> Negocio;
    std::function<void()> FinNegocios;    // after the last trade of a batch
    std::function<void()> SesionPerdida;  // a batch came short
  };

  /// All outlive the decoder.
  MarketDecoder(store::InstrumentStore& store, store::UpdatePipeline& pipeline, Strip strip);

  Steps steps;

  void Proces(std::string_view message);

  /// Quote and instrument records since program start.
  [[nodiscard]] std::int32_t ContadorRecords() const { return contador_records_; }

 private:
  void Reloj(std::string_view message);
  void Lotes(std::string_view message);
  void Negocios(std::string_view message);
  void Libros(std::string_view message);
  /// False ends the message.
  [[nodiscard]] bool Cotizaciones(std::string_view message);
  [[nodiscard]] bool AplicarCotizacion(const Cotizacion& quote,
                                       const store::InstrumentStore::Scan& scan);
  [[nodiscard]] bool CodigoDesconocido(const store::Codigo& code);
  void Maestros(std::string_view message);
  void AplicarMaestro(store::Instrumento& record);
  bool PedirMaestro(const store::Codigo& code);

  store::InstrumentStore& store_;
  store::UpdatePipeline& pipeline_;
  Strip strip_;
  // Never cleared: a cut record keeps the numbers before it.
  Cotizacion cotizacion_scratch_;
  store::Negocio negocio_scratch_;
  std::int32_t contador_records_ = 0;
};

}  // namespace feed
