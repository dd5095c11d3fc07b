#include "views/ticket.h"

#include <cmath>

#include "base/masks.h"
#include "base/val.h"
#include "store/market_class.h"
#include "views/ticket_colors.h"

namespace views {
namespace {

using namespace ticket_colors;
using platform::Label;

bool IsWhole(float x) { return x == std::floor(x); }

void Paint(Label& label, base::Color fore, base::Color back) {
  label.set_fore(fore);
  label.set_back(back);
}

void NameLevels(Ticker2::Cinco& labels, std::string_view what) {
  char level = '1';
  for (Label& label : labels) label.set_tool_tip(std::string(what) + ' ' + level++);
}

}  // namespace

const base::Mask& PriceMask(float one, float other) {
  return IsWhole(one) && IsWhole(other) ? base::masks::kCount : base::masks::kMoney;
}

Ticker2::Ticker2(platform::Platform& platform, const store::InstrumentStore& store,
                 const Form2& tape)
    : Window(platform), store_(store), tape_(tape), slide_(platform, *this) {
  DesignTicket(*this);
  design_linea_y1_ = Linea_Y1;
  NameLabels();
  JoinResizer();
  Label5.on_click = [this] { Label5_Click(); };
  Label6.on_double_click = [this] { Label6_DblClick(); };
}

// What a label says by itself is only a number.
void Ticker2::NameLabels() {
  Ultimo.set_tool_tip("Último");
  D.set_tool_tip("Variación");
  Maximo.set_tool_tip("Máximo");
  Minimo.set_tool_tip("Mínimo");
  Volumen.set_tool_tip("Volumen");
  NameLevels(vc, "Volumen de compra");
  NameLevels(pc, "Precio de compra");
  NameLevels(vv, "Volumen de venta");
  NameLevels(pv, "Precio de venta");
  Label5.set_tool_tip("Total de compra");
  Label6.set_tool_tip("Total de venta (doble clic: negociaciones del día)");
}

void Ticker2::JoinResizer() {
  for (Label* label : {&Ultimo, &D, &Maximo, &Minimo, &Volumen, &Label5, &Label6, &Label7}) {
    ReSize1.Add(*label);
  }
  for (Cinco* labels : {&vc, &pc, &vv, &pv}) {
    for (Label& label : *labels) ReSize1.Add(label);
  }
  ReSize1.Add(List1);
}

void Ticker2::OnLoad() {
  for (Cinco* labels : {&vc, &pc, &vv, &pv}) {
    for (Label& label : *labels) Paint(label, ColorVolumenIgual, ColorFondoLibro);
  }
  for (Label* label : {&Label5, &Label6}) label->set_fore(ColorVolumenIgual);
  for (Label* label : {&Ultimo, &Maximo, &Minimo, &D}) {
    Paint(*label, ColorTextoTicket, ColorFondoTicket);
  }
  List1.set_rows(1);
}

void Ticker2::OnUnload() {
  slide_.Stop();
  if (al_descargar) al_descargar();
}

void Ticker2::PintarCotizacion(const store::Instrumento& record) {
  const auto write = [this](Label& label, const base::Mask& mask, auto value, auto... mark) {
    text_.clear();
    mask.Append(text_, value);
    (text_.append(mark), ...);
    label.set_caption(text_);
  };
  // The text, whose first thousands mark ends the number, is what the new price is held against:
  // above 999 every price seems to rise.
  if (const auto shown = base::Val(Ultimo.caption())) {
    const auto before = static_cast<float>(*shown);
    if (before < record.Ultimo) Ultimo.set_back(ColorSube);
    if (before > record.Ultimo) Ultimo.set_back(ColorBaja);
  }
  const base::Mask& price = PriceMask(record.Ultimo, record.Maximo);
  write(Ultimo, price, record.Ultimo);
  // A negative close leaves the text as it was; for none, nothing is divided.
  if (record.Anterior >= 0) write(D, base::masks::kPercent, store::Variacion(record), "%");
  write(Maximo, price, record.Maximo);
  write(Minimo, price, record.Minimo);
  write(Volumen, base::masks::kCount, record.Volumen);

  const double range = static_cast<double>(record.Maximo) + static_cast<double>(record.Minimo);
  const auto middle = static_cast<float>(range / 2);
  if (middle > record.Ultimo) Ultimo.set_fore(palette::kLightRed);
  if (middle < record.Ultimo) Ultimo.set_fore(palette::kLightCyan);
  if (middle == record.Ultimo) Ultimo.set_fore(palette::kBrightWhite);
  const base::Color day = record.Anterior > record.Ultimo ? ColorTextoBaja : ColorTextoSube;
  for (Label* label : {&D, &Maximo, &Minimo, &Volumen}) Paint(*label, day, ColorFondoTicket);
}

}  // namespace views
