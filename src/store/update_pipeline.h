#pragma once

#include <cstdint>
#include <functional>

#include "platform/controls.h"
#include "platform/ticker.h"
#include "store/instrument_store.h"

namespace store {

/// Carries each update of an instrument to everything that shows or records it, always in this
/// order: tickets, alarms, bars, ticker tape, charts (quotes only), tick file, portfolio (quotes
/// only), overview, view of the market class. A step that isn't filled in is skipped.
class UpdatePipeline {
 public:
  using Step = std::function<void(std::int16_t slot)>;
  struct Steps {
    Step tickets, alarmas, barras, graficos, ticks, cartera, hot;
  };
  /// Row updates of the views by market class.
  struct Views {
    Step Continuo_negoti;   // quotes: flash, adds no row
    Step Continuo_negotii;  // loads: no flash, adds a row
    Step Indices, Estadisticas, Futuros, Divisas, Opciones;
  };

  /// All three outlive the pipeline. `ticker_on` is the check box that lets the tape run.
  UpdatePipeline(InstrumentStore& store, platform::Ticker& tape, platform::CheckBox& ticker_on);

  Steps steps;
  Views views;
  /// Opens a quote ticket on the slot.
  Step AbrirTicket;

  /// After every quote.
  void RefrescarInstrumento(std::int16_t slot);
  /// After a master record, and when a view wants an instrument painted anew.
  void RefrescarInstrumentoCarga(std::int16_t slot);

 private:
  void Refrescar(std::int16_t slot, bool carga);
  void Cinta(const Instrumento& record);
  void Vista(std::int16_t slot, bool carga);

  InstrumentStore& store_;
  platform::Ticker& tape_;
  platform::CheckBox& ticker_on_;
};

}  // namespace store
