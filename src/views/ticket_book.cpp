#include <array>
#include <cstddef>
#include <optional>

#include "base/masks.h"
#include "views/ticket.h"
#include "views/ticket_colors.h"

namespace views {
namespace {

using namespace ticket_colors;
using Levels = std::array<float, 5>;
constexpr std::size_t kLevels = 5;

/// One side of a book: as it has come, as it is stored, and where it is shown.
struct Side {
  const Levels &volumes, &prices;
  const Levels &stored_volumes, &stored_prices;
  Ticker2::Cinco &volume_labels, &price_labels;
};

struct Totals {
  double cash = 0, volume = 0;
  std::optional<double> average{};  // of the price, weighted by volume
};

Totals Sum(const Side& side) {
  Totals totals;
  for (std::size_t i = 0; i < kLevels; ++i) {
    const double volume = static_cast<double>(side.volumes[i]);
    totals.cash += volume * static_cast<double>(side.prices[i]);
    totals.volume += volume;
  }
  return totals;
}

std::optional<double> Divide(double dividend, double divisor) {
  return divisor != 0 ? std::optional(dividend / divisor) : std::nullopt;
}

void Write(platform::Label& label, std::string& text, std::string_view before,
           const base::Mask& mask, float value) {
  text = before;
  mask.Append(text, value);
  label.set_caption(text);
}

void WriteTotals(platform::Label& label, std::string& text, const Totals& totals) {
  text.clear();
  base::masks::kLongCount.Append(text, totals.cash);
  text += "  [";
  if (totals.average) base::masks::kPrice.Append(text, *totals.average);
  text += ']';
  label.set_caption(text);
}

// Nothing where the two can't be compared.
std::optional<base::Color> Compare(double a, double b, base::Color above, base::Color equal,
                                   base::Color below) {
  if (a > b) return above;
  if (a < b) return below;
  if (a == b) return equal;
  return std::nullopt;
}

// The back colour of a price that is `above` or below the average; one that equals it stays as it
// was.
void PaintPrices(const Side& side, double average, base::Color above, base::Color below) {
  for (std::size_t i = 0; i < kLevels; ++i) {
    platform::Label& label = side.price_labels[i];
    const auto price = static_cast<double>(side.prices[i]);
    const auto color = Compare(price, average, above, label.back(), below);
    label.set_back(side.prices[i] == 0 ? ColorFondoLibro : color.value_or(label.back()));
  }
}

base::Color VolumeFore(const Side& side, std::size_t i) {
  base::Color fore = side.volume_labels[i].fore();
  for (std::size_t k = 0; k < kLevels; ++k) {
    if (side.prices[i] != side.stored_prices[k]) continue;
    const auto now = static_cast<double>(side.volumes[i]);
    const auto before = static_cast<double>(side.stored_volumes[k]);
    fore =
        Compare(now, before, ColorVolumenSube, ColorVolumenIgual, ColorVolumenBaja).value_or(fore);
  }
  return fore;
}

void PaintVolumes(const Side& side) {
  for (std::size_t i = 0; i < kLevels; ++i) {
    platform::Label& label = side.volume_labels[i];
    const auto price = static_cast<double>(side.prices[i]);
    const auto before = static_cast<double>(side.stored_prices[i]);
    const auto color = Compare(price, before, ColorSube, ColorFondoLibro, ColorBaja);
    label.set_back(side.prices[i] == 0 ? ColorFondoLibro : color.value_or(label.back()));
    label.set_fore(VolumeFore(side, i));
  }
}

}  // namespace

void Ticker2::PintarLibro(const store::LibroOrdenes& scratch, const store::LibroOrdenes& stored) {
  const Side buy{
      scratch.VolCompra, scratch.PrecioCompra, stored.VolCompra, stored.PrecioCompra, vc, pc};
  const Side sell{
      scratch.VolVenta, scratch.PrecioVenta, stored.VolVenta, stored.PrecioVenta, vv, pv};
  const base::Mask& price = PriceMask(scratch.PrecioCompra[0], scratch.PrecioVenta[0]);
  for (const Side* side : {&buy, &sell}) {
    for (std::size_t i = 0; i < kLevels; ++i) {
      Write(side->volume_labels[i], text_, " ", base::masks::kCount, side->volumes[i]);
      Write(side->price_labels[i], text_, "", price, side->prices[i]);
    }
  }

  Totals bought = Sum(buy), sold = Sum(sell);
  if (bought.cash > 0) bought.average = Divide(bought.cash, bought.volume);
  sold.average = Divide(sold.cash, sold.volume);
  WriteTotals(Label5, text_, bought);
  WriteTotals(Label6, text_, sold);

  // An average that is missing counts as 0 from here on.
  const double buy_average = bought.average.value_or(0), sell_average = sold.average.value_or(0);
  const double best =
      (static_cast<double>(scratch.PrecioCompra[0]) + static_cast<double>(scratch.PrecioVenta[0])) /
      2;
  const double middle = (buy_average + sell_average) / 2;
  if (const auto color = Compare(best, middle, ColorSube, ColorFondoLibro, ColorBaja)) {
    Label5.set_back(*color);
    Label6.set_back(*color);
  }
  PaintPrices(buy, buy_average, ColorMejorMedia, ColorPeorMedia);
  PaintPrices(sell, sell_average, ColorPeorMedia, ColorMejorMedia);
  PaintVolumes(buy);
  PaintVolumes(sell);
}

}  // namespace views
