#include "views/tape.h"

#include <array>

#include "base/ansi.h"
#include "base/masks.h"
#include "base/text.h"
#include "views/trade_row.h"

namespace views {
namespace {

using platform::Align;

struct Design {
  std::string_view heading;
  int width;
  Align align;
};

constexpr std::array kDesign{
    Design{"Fecha", 700, Align::right},       Design{"Hora", 700, Align::right},
    Design{"Comprador", 1080, Align::right},  Design{"Vendedor", 1080, Align::right},
    Design{"Instrumento", 1200, Align::left}, Design{"Titulos", 700, Align::right},
    Design{"Precio", 700, Align::right},      Design{"Orden", 780, Align::center},
};

constexpr float kFontSize = 6;  // six digits in the columns of 700
constexpr int kMargin = 60;
constexpr platform::Rect kPlace{300, 300, 7500, 6000};

// The view follows the end while its top row is this close to it.
constexpr int kNearEnd = 40;

}  // namespace

Form2::Form2(platform::Platform& platform, const std::int16_t& fase_cierre)
    : Window(platform), FaseCierre(fase_cierre) {
  set_caption("Negociaciones");
  set_rect(kPlace);
  List1.set_rect({kMargin, kMargin, kPlace.width - 2 * kMargin, kPlace.height - 3 * kMargin});
  List1.set_back_color(base::palette::kBlack);
  List1.set_fore_color(base::palette::kBrightWhite);
  List1.set_font_size(kFontSize);
  // Rows are written by column number, so columns stay in their places.
  List1.on_before_move_column = [](int from, int) { return from; };
  List1.set_cols(static_cast<int>(kDesign.size()));
  List1.set_rows(1);
}

void Form2::OnLoad() {
  int col = 0;
  for (const Design& design : kDesign) {
    List1.set_text(0, col, design.heading);
    List1.set_width(col, design.width);
    List1.set_align(col, design.align);
    ++col;
  }
}

bool Form2::OnQueryUnload() {
  if (FaseCierre > 0) return true;
  Hide();
  return false;
}

void Form2::Form_Resize() {
  if (state() == State::minimized) return;
  if (state() == State::maximized) Show();
  platform::Rect grid = List1.rect();
  if (inner_width() > 120) grid.width = inner_width() - 120;
  if (inner_height() > grid.top + 150) grid.height = inner_height() - grid.top - 150;
  List1.set_rect(grid);
}

void Form2::Agregar(const store::Negocio& trade, std::string_view instrumento) {
  Load();
  fila_.Clear();
  fila_.Add(Fecha());
  fila_.Add(base::NumberText(trade.Hora));
  AddNumber(fila_, trade.Comprador);
  AddNumber(fila_, trade.Vendedor);
  fila_.Add(instrumento);
  AddNumber(fila_, trade.Titulos);
  base::masks::kOpenPrice.Append(fila_.buffer(), trade.Precio);
  fila_.EndCell();
  fila_.Add(base::OneLine(base::AnsiToUtf8({&trade.Lado, 1})));

  const int row = List1.AddRow();
  List1.set_row_text(row, fila_);
  List1.set_row_colors(row, 0, platform::Grid::kUnset, FondoDe(trade.Lado));
  List1.set_row(row);
}

void Form2::Seguir(int row) {
  Load();
  if (List1.rows() > 1 && List1.top_row() > List1.rows() - kNearEnd) List1.set_top_row(row);
}

const std::string& Form2::Fecha() {
  const platform::LocalTime now = platform().local_time();
  if (fecha_.empty() || now.day != hoy_.day || now.month != hoy_.month || now.year != hoy_.year) {
    hoy_ = now;
    fecha_.clear();
    base::masks::kSixDigits.Append(
        fecha_, static_cast<double>(now.year % 100 * 10000 + now.month * 100 + now.day));
  }
  return fecha_;
}

}  // namespace views
