#include <algorithm>

#include "base/text.h"
#include "base/val.h"
#include "views/cell_text.h"
#include "views/grid_view.h"

// How rows are built, found, painted and sorted.
namespace views {
namespace {

constexpr int kTicksLit = 1;
constexpr int kMaxFilas = 2 * store::InstrumentStore::kMaxInstrumentos;

// Texts are ordered as they stand, which runs the other way for negative numbers.
bool IsNegative(std::string_view text) {
  return text.find('-') != std::string_view::npos && base::Val(text).value_or(0) < 0;
}

}  // namespace

GridView::Fila& GridView::FilaAt(int row) {
  const auto rows = static_cast<std::size_t>(G.rows());
  if (filas_.size() != rows) filas_.resize(rows);
  return filas_[static_cast<std::size_t>(row)];
}

void GridView::CompileHeadings() {
  heading_changes_ = G.heading_changes();
  campos_.clear();
  for (int c = 1; c < G.cols() - design_.own_columns; ++c) {
    campos_.push_back(design_.columns.Of(G.text(0, c)).campo);
  }
}

void GridView::BuildRow(const store::Instrumento& record) {
  if (heading_changes_ != G.heading_changes()) CompileHeadings();
  row_text_.Clear();
  AppendName(row_text_.buffer(), record.Nombre);
  row_text_.EndCell();
  for (const Campo campo : campos_) {
    AppendCell(row_text_.buffer(), campo, record, *design_.columns.price);
    row_text_.EndCell();
  }
}

std::vector<std::int16_t> GridView::SlotsOf(
    std::initializer_list<std::string_view> beginnings) const {
  std::vector<std::int16_t> slots;
  for (int slot = 1; slot <= context_.store.NumInstrumentos(); ++slot) {
    const std::string_view code = context_.store.Instrumentos(slot).Codigo.bytes();
    const auto begins_it = [&](std::string_view text) { return code.starts_with(text); };
    if (std::ranges::any_of(beginnings, begins_it)) {
      slots.push_back(static_cast<std::int16_t>(slot));
    }
  }
  return slots;
}

void GridView::AddNameRows(std::initializer_list<std::string_view> beginnings) {
  for (const int slot : SlotsOf(beginnings)) AddNameRow(context_.store.Instrumentos(slot));
}

void GridView::AddNameRow(const store::Instrumento& record) {
  name_.clear();
  AppendName(name_, record.Nombre);
  names_.Add(name_);
}

void GridView::ClearRows() {
  G.set_rows(1);
  filas_.clear();
  FilaDeInstrumento.fill(0);
}

base::Color GridView::RowColor(const store::Instrumento& record) const {
  return record.Anterior > record.Ultimo ? config().VentanaBaja : config().VentanaSube;
}

int GridView::FindRow() { return names_.Find(base::Trim(row_text_.cell(0))); }

// All names are padded to one length, so a text that begins with one is no longer than that.
int GridView::FindPaddedRow() { return names_.FindWhole(row_text_.cell(0)); }

int GridView::RowOf(int slot) {
  std::int16_t& remembered = FilaDeInstrumento[static_cast<std::size_t>(slot)];
  if (remembered == 0) remembered = base::ToInteger<std::int16_t>(FindRow()).value_or(0);
  return remembered;
}

void GridView::FlashRow(int row, base::Color color) {
  const int last = G.cols() - 1;
  moves_.assign(static_cast<std::size_t>(last) + 1, 0);
  moves_.back() = 1;  // always lit: the sign that the row is flashing
  for (int c = 1; c < last; ++c) {
    const std::string_view text = row_text_.cell(c);
    const int order = text.compare(G.text(row, c));
    if (order == 0) continue;
    const bool rises = (order > 0) != IsNegative(text);
    moves_[static_cast<std::size_t>(c)] = rises ? 1 : -1;
  }
  G.set_row_text(row, row_text_);
  FilaAt(row) = {.FilaFlash = 1, .FilaTicks = 0, .FilaColor = color};
  const bool by_text = design_.colors == ColorFamily::text;
  if (!by_text) G.set_colors(row, 0, Colores.ColorNormalTexto, color);
  const base::Color rising = by_text ? Colores.ColorMovSube : Colores.ColorSubeTexto;
  const base::Color falling = by_text ? Colores.ColorMovBaja : Colores.ColorBajaTexto;
  for (int c = 1; c <= last; ++c) {
    const int move = moves_[static_cast<std::size_t>(c)];
    if (move > 0) G.set_colors(row, c, rising, Colores.ColorSubeFondo);
    if (move < 0) G.set_colors(row, c, falling, Colores.ColorBajaFondo);
  }
}

void GridView::FlashOrAdd(int slot) {
  if (!IsSlot(slot)) return;
  const store::Instrumento& record = context_.store.Instrumentos(slot);
  BuildRow(record);
  int row = RowOf(slot);
  if (row >= G.rows()) return;
  if (row == 0 && !row_text_.cell(0).starts_with(' ')) row = AppendRow();
  if (row > 0) FlashRow(row, RowColor(record));
}

void GridView::PaintRow(int row, base::Color color) {
  G.set_row_text(row, row_text_);
  Fila& fila = FilaAt(row);
  fila.FilaColor = color;
  if (design_.colors == ColorFamily::back) {
    G.set_colors(row, 0, Colores.ColorNormalTexto, color);
    return;
  }
  if (fila.FilaFlash == 0) {
    G.set_row_colors(row, 0, color, platform::Grid::kUnset);
    return;
  }
  for (int c = 0; c < G.cols(); ++c) G.set_fore(row, c, color);
}

bool GridView::IsLit(int row, const Fila& fila) const {
  if (design_.colors == ColorFamily::text) {
    return fila.FilaFlash > 0 && G.back(row, G.cols() - 1) != config().VentanaFondo;
  }
  return G.fore(row, G.cols() - 1) != Colores.ColorNormalTexto;
}

void GridView::ClearFlashes() {
  for (int row = 1; row < G.rows(); ++row) {
    Fila& fila = FilaAt(row);
    if (IsLit(row, fila)) ClearFlash(row, fila);
  }
}

void GridView::ClearFlash(int row, Fila& fila) {
  if (++fila.FilaTicks <= kTicksLit) return;
  fila.FilaTicks = fila.FilaFlash = 0;
  if (design_.colors == ColorFamily::text) {
    G.set_row_colors(row, 0, fila.FilaColor, platform::Grid::kUnset);
  } else {
    G.set_row_colors(row, 1, Colores.ColorNormalTexto, fila.FilaColor);
  }
}

int GridView::AppendRow() {
  // A name that changes leaves its old row behind; somewhere that must end.
  if (G.rows() > kMaxFilas) return 0;
  FilaDeInstrumento.fill(0);
  return names_.Add(row_text_.cell(0));
}

void GridView::InsertRow(base::Color color) {
  const bool in_order = names_.in_order();
  const int row = AppendRow();
  if (row == 0) return;
  PaintRow(row, color);
  if (!in_order) return SortRows(0);
  const int place = names_.PlaceLast();
  std::rotate(filas_.begin() + place, filas_.end() - 1, filas_.end());
  G.Select(1, 1, 1, 1);
}

void GridView::SortRows(int col) {
  if (!G.Select(1, col, G.rows() - 1, col)) return;
  const std::vector<int> former = G.SortAscending();
  filas_.resize(former.size());
  std::vector<Fila> moved;
  moved.reserve(former.size());
  for (const int row : former) moved.push_back(filas_[static_cast<std::size_t>(row)]);
  filas_ = std::move(moved);
  if (col == 0) names_.NoteOrder();
  G.Select(1, 1, 1, 1);
}

}  // namespace views
