#include <array>
#include <cmath>
#include <string>
#include <string_view>

#include "base/masks.h"
#include "base/val.h"
#include "views/cell_text.h"
#include "views/ticket.h"
#include "views/trade_row.h"

// The list of a ticket's trades.
namespace views {
namespace {

using platform::Align;

struct Design {
  std::string_view heading;
  double width;  // in widths of `Label7`; 0 keeps that of the design
  Form2::Column source;
};

constexpr std::array kDesign{
    Design{"Hora", 1.5, Form2::kHora},       Design{"Com", 1, Form2::kComprador},
    Design{"Precio", 1.5, Form2::kPrecio},   Design{"Ven", 1, Form2::kVendedor},
    Design{"Volumen", 1.8, Form2::kTitulos}, Design{"Eje", 0, Form2::kOrden},
};

// What the list's row of a trade says of its side.
char LadoDe(std::string_view eje) { return eje.size() == 1 ? eje[0] : ' '; }

}  // namespace

void Ticker2::inicio() {
  List1.set_rows(1);
  // Rows are written by column number, so columns stay in their places.
  List1.on_before_move_column = [](int from, int) { return from; };
  int col = 0;
  for (const Design& design : kDesign) {
    List1.set_text(0, col, design.heading);
    if (design.width > 0) {
      List1.set_width(col, static_cast<int>(std::lrint(Label7.rect().width * design.width)));
    }
    List1.set_align(col, design.source == Form2::kOrden ? Align::center : Align::right);
    ++col;
  }
  Label7.set_caption("Comp");
  CopiarDeCinta();
}

void Ticker2::CopiarDeCinta() {
  std::string nombre;
  if (const std::int16_t slot = SlotDe(store_, store::Codigo::FromUtf8(tag())); slot > 0) {
    AppendName(nombre, store_.Instrumentos(slot).Nombre);
  }
  const platform::Grid& tape = tape_.List1;
  for (int row = 1; row < tape.rows(); ++row) {
    if (tape.text(row, Form2::kInstrumento) != nombre) continue;
    fila_.Clear();
    for (const Design& design : kDesign) fila_.Add(tape.text(row, design.source));
    AgregarFila(LadoDe(tape.text(row, Form2::kOrden)));
  }
  sueltas_desde_ = 0;
  ultima_hora_ = 0;
  const int last = List1.rows() - 1;
  if (last < 1) return;
  List1.Select(1, 0, last, 0);
  (void)List1.SortAscending();
  Ordenadas();
  List1.set_top_row(last);
}

void Ticker2::AgregarNegocio(const store::Negocio& trade) {
  fila_.Clear();
  fila_.Add(base::NumberText(trade.Hora));
  AddNumber(fila_, trade.Comprador);
  base::masks::kPrice.Append(fila_.buffer(), trade.Precio);
  fila_.EndCell();
  AddNumber(fila_, trade.Vendedor);
  AddNumber(fila_, trade.Titulos);
  if (FondoDe(trade.Lado) != platform::Grid::kUnset) fila_.Add({&trade.Lado, 1});
  AgregarFila(trade.Lado);

  const int last = List1.rows() - 1;
  // As texts, so that 95959 after 100000 goes unnoticed.
  if (List1.text(last, 0) < List1.text(last - 1, 0)) {
    Ordenar();
  } else {
    if (sueltas_desde_ == 0 && trade.Hora < ultima_hora_) sueltas_desde_ = last;
    ultima_hora_ = trade.Hora;
  }
  List1.set_top_row(last);
}

// The row in `fila_`, at the end.
void Ticker2::AgregarFila(char lado) {
  const int row = List1.AddRow();
  List1.set_row_text(row, fila_);
  List1.set_row_colors(row, 0, platform::Grid::kUnset, FondoDe(lado));
  List1.set_row(row);
}

// By their time, those of one second in order of arrival.
void Ticker2::Ordenar() {
  const int last = List1.rows() - 1;
  const int first = sueltas_desde_ > 0 ? sueltas_desde_ : last;
  for (int row = first; row <= last; ++row) List1.SortRow(row, 0);
  Ordenadas();
}

// All rows are in order now.
void Ticker2::Ordenadas() {
  sueltas_desde_ = 0;
  List1.Select(1, 1, 1, 1);
  ultima_hora_ = static_cast<float>(base::Val(List1.text(List1.rows() - 1, 0)).value_or(0));
}

}  // namespace views
