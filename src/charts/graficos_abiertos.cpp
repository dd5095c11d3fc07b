#include "charts/graficos_abiertos.h"

#include <algorithm>
#include <memory>
#include <string>

#include "base/text.h"
#include "charts/typed_code.h"

namespace charts {
namespace {

constexpr int kCascade = 450, kCascadeSteps = 8;  // so that the captions of several are seen

}  // namespace

GraficosAbiertos::GraficosAbiertos(platform::Platform& platform,
                                   const store::InstrumentStore& store, const TickFiles& ticks,
                                   const std::int16_t& FaseCierre)
    : Medias(platform, FaseCierre),
      platform_(platform),
      store_(store),
      ticks_(ticks),
      abiertos_(platform) {}

void GraficosAbiertos::Abrir(std::int16_t slot) {
  if (slot < 1 || slot > store_.NumInstrumentos()) return;
  const store::Instrumento& record = store_.Instrumentos(slot);
  Mostrar(record.Codigo, record.Nombre.trimmed_utf8());
}

bool GraficosAbiertos::Pedir() {
  const std::string typed =
      CodigoTecleado(platform_.dialogs().Input("Codigo del Valor a graficar: "));
  if (typed.empty()) return false;
  const store::Codigo code(typed);
  Mostrar(code, code.trimmed_utf8());
  return true;
}

void GraficosAbiertos::Mostrar(const store::Codigo& code, std::string_view caption) {
  Graficos& chart = abiertos_.Add(store::WholeCode(code),
                                  std::make_unique<Graficos>(platform_, store_, ticks_, Medias));
  platform::Rect rect = chart.rect();
  const int step = kCascade * (static_cast<int>(abiertos_.size() - 1) % kCascadeSteps);
  rect.left += step;
  rect.top += step;
  chart.set_rect(rect);
  chart.set_tag("G:" + code.utf8());
  chart.set_caption(base::OneLine(caption));
  chart.Show();
  chart.Empezar(code);

  const auto place = static_cast<std::int16_t>(platform_.windows.size() - 1);
  const auto known = std::ranges::find(ChartCodes, code);
  if (known == ChartCodes.end()) {
    ChartCodes.push_back(code);
    ChartWindowIndex.push_back(place);
  } else {
    ChartWindowIndex[static_cast<std::size_t>(known - ChartCodes.begin())] = place;
  }
}

// A code with a chart is one of `ChartCodes`.
void GraficosAbiertos::GraficosVivo(std::int16_t slot) {
  const store::Instrumento& record = store_.Instrumentos(slot);
  abiertos_.ForEachOf(store::WholeCode(record.Codigo),
                      [&](Graficos& chart) { chart.Vivo(record); });
}

}  // namespace charts
