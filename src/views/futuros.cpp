#include "views/futuros.h"

#include "views/market_columns.h"

namespace views {
namespace {

constexpr auto kColumns =
    Followed(kPriceColumns, kVolumen, kEfectivo, kPonderado, kSaldos, kHora, kFecha);

constexpr ColumnTable kTable = FlaggedTable(kColumns);

constexpr GridDesign kDesign{
    .caption = "Cotirama Futuros",
    .rect = {1200, 1200, 17670, 4500},
    .columns = kTable,
    .cam = "FU.CAM",
    .pos = "FU.POS",
    .entrada = 3,
    .registro = 3,
    .colors = ColorFamily::back,
    .bar = false,
    .timer_ms = 2000,
    .layout = LayoutForm::widths_first,
};

}  // namespace

Futuros::Futuros(const GridContext& context) : GridView(context, kDesign) {}

void Futuros::AddRows() {
  AddNameRows({"PD", "MF"});
  SortRows(0);
}

void Futuros::ColoresOn() {
  ReadColors(/*write_first=*/false);
  BuildColumns();
  for (const std::int16_t slot : SlotsOf({"PD", "MF", "CM"})) negotio(slot);
}

}  // namespace views
