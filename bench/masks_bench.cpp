#include <array>
#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "base/masks.h"

// A row of the board, 13 cells, formatted and compared with the texts that it shows: by the masks,
// and by snprintf with the groups put in by hand. Time is per row, items are cells.
namespace {

using base::Mask;
namespace masks = base::masks;

constexpr std::size_t kCells = 13;

struct Quote {
  float anterior, apertura, ultimo, maximo, minimo, volumen, medio, hora, fecha;
  double efectivo, saldo;
};

// Prices move over cents, volumes over units: no value is near a tie of its mask.
std::vector<Quote> Quotes() {
  std::vector<Quote> quotes;
  for (int i = 0; i < 200; ++i) {
    const float price = static_cast<float>(200 + i * 137) / 100;
    const auto volume = static_cast<float>(1000 + i * 50'021);
    const double cash = std::floor(static_cast<double>(volume) * price) + 0.25;
    quotes.push_back({price - 0.12f, price + 0.05f, price, price + 0.31f, price - 0.27f, volume,
                      price + 0.01f, static_cast<float>(90000 + i * 11), 1000426, cash,
                      std::floor(cash / 7) - 1e6});
  }
  return quotes;
}

// One call of `cell(column, mask, value)` a column.
template <typename Cell>
void ForEachCell(const Quote& q, Cell&& cell) {
  cell(0, masks::kPrice, q.anterior);
  cell(1, masks::kPrice, q.apertura);
  cell(2, masks::kPercent, q.ultimo * 100.0 / q.anterior - 100);
  cell(3, masks::kPrice, q.ultimo);
  cell(4, masks::kPrice, q.maximo);
  cell(5, masks::kPrice, q.minimo);
  cell(6, masks::kCount, q.volumen);
  cell(7, masks::kMoney, q.efectivo);
  cell(8, masks::kPrice, q.medio);
  cell(9, masks::kMoney, q.saldo);
  cell(10, masks::kTime, q.hora);
  cell(11, masks::kDate, q.fecha);
  cell(12, masks::kCount, q.ultimo * 166.386);
}

using Row = std::array<std::string, kCells>;

Row RowOf(const Quote& quote) {
  Row row;
  ForEachCell(quote, [&](std::size_t column, const Mask& mask, auto value) {
    row[column] = mask.Format(value);
  });
  return row;
}

std::string ByHand(std::size_t column, double value) {
  char digits[64];
  const bool marked = column == 10 || column == 11;
  const bool whole = column == 6 || column == 12;
  std::snprintf(digits, sizeof digits, marked ? "%06.0f" : whole ? "%.0f" : "%.2f", value);
  std::string text = digits;
  if (column == 2) return text;
  const std::size_t point = text.find('.');
  const std::size_t first = text.starts_with('-') ? 1 : 0;
  const std::size_t step = marked ? 2 : 3;
  std::size_t at = point == std::string::npos ? text.size() : point;
  for (std::size_t marks = 0; at > first + step && !(marked && marks == 2); ++marks) {
    at -= step;
    text.insert(at, 1, column == 10 ? ':' : column == 11 ? '/' : ',');
  }
  return text;
}

// `format(column, mask, value)` gives a text that compares with the one shown.
template <typename Format>
void CompareRows(benchmark::State& state, Format&& format) {
  const std::vector<Quote> quotes = Quotes();
  std::vector<Row> shown;
  for (const Quote& quote : quotes) shown.push_back(RowOf(quote));
  std::size_t slot = 0;
  std::size_t changed = 0;
  for (auto _ : state) {
    ForEachCell(quotes[slot], [&](std::size_t column, const Mask& mask, auto value) {
      changed += format(column, mask, value) != shown[slot][column] ? 1u : 0u;
    });
    slot = slot + 1 == quotes.size() ? 0 : slot + 1;
  }
  if (changed != 0) state.SkipWithError("the texts differ");
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kCells));
}

void RowByMasks(benchmark::State& state) {
  std::string text;
  CompareRows(state, [&](std::size_t, const Mask& mask, auto value) -> const std::string& {
    text.clear();
    mask.Append(text, value);
    return text;
  });
}
BENCHMARK(RowByMasks);

void RowBySnprintf(benchmark::State& state) {
  CompareRows(state, [](std::size_t column, const Mask&, auto value) {
    return ByHand(column, static_cast<double>(value));
  });
}
BENCHMARK(RowBySnprintf);

}  // namespace
