#include "charts/hot.h"

#include <algorithm>
#include <span>

#include "base/ansi.h"
#include "base/masks.h"
#include "base/text.h"
#include "charts/replay.h"
#include "charts/typed_code.h"
#include "views/market_columns.h"

namespace charts {
namespace {

constexpr auto kColumns = views::Followed(views::kPriceColumns, views::kVolumen, views::kHora);

constexpr views::ColumnTable kTable{
    .name_width = views::kNameWidth,
    .design = kColumns,
    .by_flag = views::kSevenFlags,
    .closing = views::kClosingHora,
};

constexpr views::GridDesign kDesign{
    .caption = "Hot",
    .rect = {300, 300, 14400, 9000},
    .columns = kTable,
    .cam = "MC.CAM",
    .pos = "HOT.POS",
    .timer_ms = 0,
};

enum Fijo : std::size_t { kIbex, kTeorico, kTendencia, kSC, kSV, kSCT1, kSVT1, kParte, kParteT1 };

constexpr std::array<std::string_view, kParteT1 + 1> kCodigos{"I IB   ", "I ETH2 ", "I TKUP ",
                                                              "STSC   ", "STSV   ", "STSCT1 ",
                                                              "STSVT1 ", "I MCSC ", "I MCT1 "};
constexpr std::span kDeGr1(kCodigos.data(), 3);

constexpr float kMitad = 50;  // % of the market
constexpr std::string_view kTipNone = "Añade un valor a la tabla";
constexpr std::string_view kTipHeld = "Quita el valor de la tabla; su código: ";

// Equal leaves the colour.
template <typename Number>
void Colorear(platform::Label& label, Number value, Number than) {
  if (value > than) label.set_back(base::palette::kGreen);
  if (value < than) label.set_back(base::palette::kRed);
}

template <typename Number>
void Escribir(platform::Label& label, const base::Mask& mask, Number value) {
  label.set_caption(mask.Format(value) + ' ');
}

}  // namespace

Hot::Hot(const views::GridContext& context, const TickFiles& ticks) : GridView(context, kDesign) {
  claves_.fill(store::kNoCode);
  std::ranges::transform(kCodigos, claves_.begin(), store::PackCode);
  for (Chart* chart : {&Gr1, &Gr2}) {
    chart->set_with_volume(false);
    chart->on_data = [&ticks, chart](const store::Codigo& code) {
      ReplayTicks(ticks, code, *chart);
    };
  }
  for (platform::Label* label : {&LSC, &LSV, &LSCT1, &LSVT1, &Label6, &Label8, &Label10}) {
    label->set_fore(base::palette::kBrightWhite);
    label->set_back(base::palette::kBlack);
  }
  Command4.set_caption("Instrumento");
  Command4.set_tool_tip(kTipNone);
}

void Hot::OnLoad() {
  GridView::OnLoad();
  const auto begin = [](Chart& chart, std::string_view code) {
    chart.AddSerie(store::Codigo(code));
    chart.ShowFeed(store::Codigo(code));
  };
  for (const std::string_view code : kDeGr1) begin(Gr1, code);
  begin(Gr2, kCodigos[kParte]);
  // What is known already isn't kept from who opens it late.
  for (const std::string_view code : kCodigos) {
    ActuaHot(context().store.SiguienteDe(store::Codigo(code), 0));
  }
}

void Hot::ActuaHot(std::int16_t indice) {
  if (!IsSlot(indice)) return;
  const store::Instrumento& record = context().store.Instrumentos(indice);
  const store::CodeKey clave = store::PackCode(record.Codigo.bytes());
  if (clave == clave_) PintarFila(record);
  const int fijo = store::FindCode(claves_, clave);
  if (fijo >= 0) ActuaFijo(static_cast<std::size_t>(fijo), record);
}

void Hot::ActuaFijo(std::size_t fijo, const store::Instrumento& record) {
  // Of one key, too, are codes whose blanks stand elsewhere.
  if (record.Codigo.bytes() != kCodigos[fijo]) return;
  using base::masks::kLongCount;
  switch (static_cast<Fijo>(fijo)) {
    case kIbex:
      Gr1.set_tool_tip("IBEX 35");
      return Trazar(Gr1, record);
    case kTeorico:
    case kTendencia:
      return Trazar(Gr1, record);
    case kSC:
      SaldoComprador = record.Efectivo;
      return Escribir(LSC, kLongCount, record.Efectivo);
    case kSV:
      SaldoVendedor = record.Efectivo;
      return Escribir(LSV, kLongCount, record.Efectivo);
    case kSCT1:
      return Escribir(LSCT1, kLongCount, record.Volumen);
    case kSVT1:
      return Escribir(LSVT1, kLongCount, record.Volumen);
    case kParte:
      return PintarParte(record);
    case kParteT1:
      Escribir(Label8, base::masks::kOpenRate, record.Ultimo);
      return Colorear(Label8, record.Ultimo, kMitad);
  }
}

void Hot::PintarParte(const store::Instrumento& record) {
  Escribir(Label6, base::masks::kOpenRate, record.Ultimo);
  Colorear(Label6, record.Ultimo, kMitad);
  Trazar(Gr2, record);
  Gr2.set_tool_tip("%SALDO COMPRADOR");
  Label10.set_caption(base::masks::kCount.Format(SaldoComprador - SaldoVendedor));
  Colorear(Label10, SaldoComprador, SaldoVendedor);
}

void Hot::Trazar(Chart& chart, const store::Instrumento& record) {
  const store::InstrumentStore& store = context().store;
  const float value = record.Ultimo;
  if (!(value > 0)) return;  // it has no price yet
  chart.AddReg(record.Codigo, {.apertura = value,
                               .cierre = value,
                               .maximo = value,
                               .minimo = value,
                               .fecha = store.MercadoFecha,
                               .hora = store.MercadoHora});
  chart.ShowFeed(record.Codigo);
}

void Hot::Command4_Click() {
  const std::string code = CodigoTecleado(platform().dialogs().Input("Introduce Código del Valor"));
  if (!code.empty()) {
    if (NumHot < 1) {
      Agregar(code);
    } else if (code == HotCodigos) {
      Quitar();
    } else {
      Label1.set_caption("Quite antes " + base::AnsiToUtf8(HotCodigos) + ": tecléelo otra vez");
    }
  }
  SetFocus(Command5);
}

void Hot::Agregar(std::string_view code) {
  HotCodigos = code;
  NumHot = 1;
  Command4.set_tool_tip(std::string(kTipHeld).append(base::AnsiToUtf8(code)));
  clave_ = store::PackCode(code);
  const std::int16_t slot = context().store.Buscar(code);
  Label1.set_caption(base::AnsiToUtf8(code) + ": sin datos todavía");
  if (slot > 0) PintarFila(context().store.Instrumentos(slot));
}

void Hot::Quitar() {
  HotCodigos.clear();
  NumHot = 0;
  Command4.set_tool_tip(kTipNone);
  clave_ = store::kNoCode;
  ClearRows();
  FilaActual = 0;
  Label1.set_caption("");
}

void Hot::PintarFila(const store::Instrumento& record) {
  BuildRow(record);
  if (G.rows() < 2) {
    G.AddRow();
    Label1.set_caption("");
  }
  G.set_row_text(1, row_text());
}

}  // namespace charts
