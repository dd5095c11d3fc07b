#include "store/update_pipeline.h"

#include "base/masks.h"
#include "store/market_class.h"

namespace store {
namespace {

void Run(const UpdatePipeline::Step& step, std::int16_t slot) {
  if (step) step(slot);
}

// An instrument without a proper name is nothing to show or to record.
bool HasName(const Instrumento& record) {
  return static_cast<unsigned char>(record.Nombre[0]) >= '0';
}

bool OnTape(const Codigo& code) {
  return code.bytes().starts_with("I ") || code.bytes() == "PDIBXC ";
}

constexpr int kTapeSpacing = 80;

}  // namespace

UpdatePipeline::UpdatePipeline(InstrumentStore& store, platform::Ticker& tape,
                               platform::CheckBox& ticker_on)
    : store_(store), tape_(tape), ticker_on_(ticker_on) {}

void UpdatePipeline::RefrescarInstrumento(std::int16_t slot) { Refrescar(slot, false); }

void UpdatePipeline::RefrescarInstrumentoCarga(std::int16_t slot) { Refrescar(slot, true); }

void UpdatePipeline::Refrescar(std::int16_t slot, bool carga) {
  const Instrumento& record = store_.Instrumentos(slot);
  if (!HasName(record)) return;
  Run(steps.tickets, slot);
  Run(steps.alarmas, slot);
  Run(steps.barras, slot);
  Cinta(record);
  if (!carga) Run(steps.graficos, slot);
  Run(steps.ticks, slot);
  if (!carga) Run(steps.cartera, slot);
  Run(steps.hot, slot);
  Vista(slot, carga);
}

void UpdatePipeline::Cinta(const Instrumento& record) {
  if (ticker_on_.value() != 1 || !OnTape(record.Codigo)) return;
  std::string text = record.Nombre.trimmed_utf8() + ' ';
  base::masks::kMoney.Append(text, record.Ultimo);
  text += ' ';
  base::masks::kShortPercent.Append(text, Variacion(record));
  text += '%';

  const std::string key = record.Codigo.utf8();
  tape_.QuitarItem(key);
  const auto put = [&](base::Color color) { tape_.PonerTexto(text, key, color, kTapeSpacing, ""); };
  if (record.Anterior > record.Ultimo) put(base::palette::kLightRed);
  if (record.Anterior < record.Ultimo) put(base::palette::kLightGreen);
  if (record.Anterior == record.Ultimo) put(base::palette::kBrightWhite);
}

void UpdatePipeline::Vista(std::int16_t slot, bool carga) {
  switch (ClaseDe(store_.Instrumentos(slot), carga)) {
    case Clase::Continuo:
      return Run(carga ? views.Continuo_negotii : views.Continuo_negoti, slot);
    case Clase::Indices:
      return Run(views.Indices, slot);
    case Clase::Estadisticas:
      return Run(views.Estadisticas, slot);
    case Clase::Futuros:
      return Run(views.Futuros, slot);
    case Clase::Divisas:
      return Run(views.Divisas, slot);
    case Clase::Opciones:
      return Run(views.Opciones, slot);
    case Clase::ninguna:
      return;
  }
}

}  // namespace store
