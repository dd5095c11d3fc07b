#include "charts/graficos.h"

#include <algorithm>
#include <cmath>

#include "base/masks.h"
#include "base/val.h"
#include "charts/replay.h"
#include "store/market_class.h"
#include "views/cell_text.h"

namespace charts {
namespace {

constexpr platform::Rect kDesign{600, 600, 9000, 6000};
constexpr int kRight = 100, kBelow = 300, kBelowWithBar = 800;
constexpr int kShake = 10;
constexpr int kTickMs = 2000;

constexpr int kDecimals = 2, kDecimalsOfCurrencies = 3;

void AppendCaption(std::string& text, const store::Instrumento& record) {
  using namespace base::masks;
  views::AppendName(text, record.Nombre);
  text.append(4, ' ');
  kMoney.Append(text, record.Ultimo);
  text.append(5, ' ');
  kShortPercent.Append(text, store::Variacion(record));
  text += '%';
  text.append(6, ' ');
  kMoney.Append(text, record.Maximo);
  text.append(5, ' ');
  kMoney.Append(text, record.Minimo);
  text.append(5, ' ');
  kCount.Append(text, record.Volumen);
}

}  // namespace

Graficos::Graficos(platform::Platform& platform, const store::InstrumentStore& store,
                   const TickFiles& ticks, Medias& medias)
    : Window(platform),
      Timer1(platform, kTickMs, false),
      store_(store),
      ticks_(ticks),
      medias_(medias) {
  set_rect(kDesign);
  Ajustar(kDesign.width, kDesign.height);
  Gr1.on_data = [this](const store::Codigo& code) { OnChartData(code); };
  Gr1.on_command = [this](int command) { Gr1_Command(command); };
  Gr1.on_bar_shown = [this] { Sacudir(1); };
  Gr1.on_bar_hidden = [this] { Sacudir(0); };
  Timer1.on_tick = [this] { Timer1_Timer(); };
}

void Graficos::OnLoad() {
  open_ = std::make_shared<bool>();
  Timer1.set_enabled(true);
}

void Graficos::OnUnload() {
  open_.reset();
  Timer1.set_enabled(false);
  if (al_descargar) al_descargar();
}

template <typename Step>
auto Graficos::WhileOpen(Step step) {
  return [step = std::move(step), open = std::weak_ptr(open_)](const auto&... with) {
    if (!open.expired()) step(with...);
  };
}

void Graficos::Empezar(const store::Codigo& code) {
  Gr1.set_decimals(code.bytes().starts_with("DV") ? kDecimalsOfCurrencies : kDecimals);
  Gr1.AddSerie(code);
}

void Graficos::OnChartData(const store::Codigo& code) { ReplayTicks(ticks_, code, Gr1); }

void Graficos::Vivo(const store::Instrumento& record) {
  Gr1.AddReg(record.Codigo, {.apertura = record.Apertura,
                             .cierre = record.Ultimo,
                             .maximo = record.Maximo,
                             .minimo = record.Minimo,
                             .volumen = record.Volumen,
                             .efectivo = record.Efectivo,
                             .fecha = store_.MercadoFecha,
                             .hora = store_.MercadoHora});
  Gr1.ShowFeed(record.Codigo);
  caption_.clear();
  AppendCaption(caption_, record);
  set_caption(caption_);
}

void Graficos::Gr1_Command(int command) {
  if (command == Chart::kAjustar) Sacudir(0);
  if (command == Chart::kMedia) {
    medias_.Pedir(WhileOpen([this](const std::string& periodos) { AgregarMedia(periodos); }));
  }
}

void Graficos::AgregarMedia(const std::string& periodos) {
  const double number = std::floor(base::Val(periodos).value_or(0));
  if (number >= 1 && number <= Chart::kMaxPeriodos) Gr1.AddMedia(static_cast<int>(number));
}

void Graficos::Sacudir(std::int16_t margin) {
  ChartMargin = margin;
  if (InternalResize != 0) return;
  InternalResize = 1;
  shaken_width_ = inner_width();
  shaken_height_ = inner_height();
  platform().Post(WhileOpen([this] {
    CambiarAncho(kShake);
    platform().Post(WhileOpen([this] {
      CambiarAncho(-kShake);
      InternalResize = 0;
    }));
  }));
}

// The screen doesn't tell of a change that is less than a pixel.
void Graficos::CambiarAncho(int by) {
  if (state() == State::normal) {
    platform::Rect wider = rect();
    wider.width += by;
    set_rect(wider);
  }
  Form_Resize();
}

void Graficos::OnResize() {
  // The screen may tell of the way back only when all is over.
  const bool back = inner_width() == shaken_width_ && inner_height() == shaken_height_;
  if (placed_ && !back) return Form_Resize();
  if (placed_) {
    ResizePending = 1;
    return;
  }
  placed_ = true;
  Ajustar(inner_width(), inner_height());
}

void Graficos::Form_Resize() {
  ResizePending = 1;
  if (InternalResize == 0) Gr1.set_visible(false);
}

void Graficos::Timer1_Timer() {
  if (ResizePending > 1) {
    if (InternalResize == 0) {
      Gr1.set_visible(true);
      shaken_width_ = shaken_height_ = kNotShaken;
    }
    Ajustar(inner_width(), inner_height());
    ResizePending = 0;
  }
  if (ResizePending == 1) ResizePending = 2;
}

void Graficos::Ajustar(int width, int height) {
  const int below = ChartMargin == 0 ? kBelow : kBelowWithBar;
  Gr1.set_rect({0, 0, std::max(0, width - kRight), std::max(0, height - below)});
}

}  // namespace charts
