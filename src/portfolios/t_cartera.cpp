#include "portfolios/t_cartera.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <utility>

#include "base/masks.h"
#include "views/market_columns.h"

namespace portfolios {
namespace {

using views::Campo;
using views::Columna;

constexpr auto kColumns =
    views::Followed(views::kPriceColumns, views::kVolumen, Columna{"% Gain", Campo::ninguno, 990},
                    Columna{"Ganancia", Campo::ninguno, 1560}, views::kHora);

constexpr std::array kOthers{views::kEfectivo, views::kPonderado, views::kSaldos, views::kFecha,
                             views::kPesetas};

constexpr std::array<std::string_view, 3> kClosing{"% Gain", "Ganancia", "Hora"};

constexpr views::ColumnTable kTable{
    .name_width = views::kNameWidth,
    .design = kColumns,
    .by_flag = views::kSevenFlags,
    .closing = kClosing,
    .others = kOthers,
};

constexpr views::GridDesign kDesign{
    .caption = "Valores en Carteras",
    .rect = {900, 900, 14400, 5400},
    .columns = kTable,
    .cam = "MC.CAM",
    .pos = "CA.POS",
    .entrada = 1,
    .registro = 1,
    .colors = views::ColorFamily::back,
    .own_columns = kClosing.size(),
};

// Of one code: where the server doubles it without end, that isn't to fill the window.
constexpr int kMaxDobles = 20;

// What doesn't fit isn't stored; what came as infinity or NaN goes on as it is.
void Store(float& target, double value) {
  const auto stored = static_cast<float>(value);
  if (!std::isinf(stored) || std::isinf(value)) target = stored;
}

struct Tenencia {
  float coste = 0, valor = 0;
};

Tenencia TenenciaDe(const PortfolioStore& portfolios, int p, const store::Instrumento& record) {
  Tenencia held;
  for (int k = 1; k <= portfolios.NumPosiciones(p); ++k) {
    const Operacion& position = portfolios.Posiciones(p, k);
    if (position.Codigo != record.Codigo) continue;
    const double titulos = position.Titulos;
    Store(held.coste, held.coste + titulos * static_cast<double>(position.Precio));
    Store(held.valor, static_cast<double>(record.Ultimo) * titulos);
  }
  return held;
}

void AppendGain(std::string& out, const Tenencia& held) {
  const double coste = held.coste, valor = held.valor;
  if (coste == 0) {
    out += '0';
  } else {
    base::masks::kPercent.Append(out, valor * 100 / coste - 100);
  }
}

}  // namespace

TCartera::TCartera(const views::GridContext& context, const PortfolioStore& portfolios)
    : GridView(context, kDesign), portfolios_(portfolios) {}

std::vector<TCartera::Valor> TCartera::ValoresDe(int p) const {
  const store::InstrumentStore& store = context().store;
  std::vector<Valor> valores;
  for (int k = 1; k <= portfolios_.NumPosiciones(p); ++k) {
    const Operacion& held = portfolios_.Posiciones(p, k);
    std::int16_t slot = 0;
    for (int n = 0; n < kMaxDobles && (slot = store.SiguienteDe(held.Codigo, slot)) != 0; ++n) {
      valores.push_back({slot, store.Instrumentos(slot).Nombre, held.Titulos, held.Precio});
    }
  }
  return valores;
}

void TCartera::Mostrar(int p) {
  if (p < 1 || p > PortfolioStore::kMaxCarteras) return;
  const std::vector<Valor> before = std::exchange(valores_, ValoresDe(p));
  const bool rows_stand =
      std::ssize(valores_) == G.rows() - 1 && std::ranges::equal(before, valores_, &Valor::SameRow);
  if (!rows_stand) CarteraActual_ = 0;
  if (p != CarteraActual_) return Rehacer(p);
  for (std::size_t i = 0; i < valores_.size(); ++i) {
    if (!valores_[i].SameHolding(before[i])) negoti(valores_[i].slot);
  }
}

void TCartera::Rehacer(int p) {
  ClearRows();
  CarteraActual_ = static_cast<std::int16_t>(p);
  for (const Valor& valor : valores_) {
    AddNameRow(context().store.Instrumentos(valor.slot));
    negoti(valor.slot);
  }
}

void TCartera::ColoresOn() {
  ReadColors(/*write_first=*/false);
  BuildColumns();
  CarteraActual_ = 0;
}

void TCartera::BuildValuedRow(const store::Instrumento& record) {
  BuildRow(record);
  const Tenencia held = TenenciaDe(portfolios_, CarteraActual_, record);
  platform::RowText& row = row_text();
  AppendGain(row.buffer(), held);
  row.EndCell();
  base::masks::kMoney.Append(row.buffer(),
                             static_cast<double>(held.valor) - static_cast<double>(held.coste));
  row.EndCell();
  AppendCell(row.buffer(), Campo::Hora, record);
  row.EndCell();
}

void TCartera::negoti(std::int16_t indice) {
  if (!IsSlot(indice)) return;
  const store::Instrumento& record = context().store.Instrumentos(indice);
  name_.clear();
  views::AppendName(name_, record.Nombre);
  bool built = false;
  for (int row = 1; row < G.rows(); ++row) {
    if (!G.text(row, 0).starts_with(name_)) continue;
    if (!built) BuildValuedRow(record);
    built = true;
    FlashRow(row, RowColor(record));
  }
}

void TCartera::G_DblClick() {
  if (G.mouse_row > 0) return OpenTickets(std::string(G.text(G.mouse_row, 0)));
  GridView::G_DblClick();
}

int TCartera::G_BeforeMoveColumn(int from, int to) const {
  const int last = G.cols() - 1 - kDesign.own_columns;  // that may move
  if (from < 1 || from > last) return from;
  return std::clamp(to, 1, last);
}

}  // namespace portfolios
