#include "views/divisas.h"

#include "views/market_columns.h"

namespace views {
namespace {

constexpr auto kColumns = Followed(kPriceColumns, kHora, kFecha);

constexpr ColumnTable kTable{
    .name_width = kNameWidth,
    .design = kColumns,
    .price = &base::masks::kRate,
};

constexpr GridDesign kDesign{
    .caption = "Cotirama Divisas",
    .rect = {1500, 1500, 12000, 5400},
    .columns = kTable,
    .cam = "",
    .pos = "DV.POS",
    .entrada = 4,
    .registro = 4,
    .colors = ColorFamily::back,
    .timer_ms = 0,
    .layout = LayoutForm::widths_first,
};

}  // namespace

Divisas::Divisas(const GridContext& context) : GridView(context, kDesign) {}

void Divisas::AddRows() { AddNameRows({"DV"}); }

void Divisas::ColoresOn() {
  ReadColors(/*write_first=*/false);
  for (const std::int16_t slot : SlotsOf({"DV"})) negotiv(slot);
}

void Divisas::negotiv(std::int16_t indice) {
  if (!IsSlot(indice)) return;
  const store::Instrumento& record = context().store.Instrumentos(indice);
  BuildRow(record);
  int row = FindRow();
  if (row == 0) row = AppendRow();
  if (row > 0) FlashRow(row, RowColor(record));
}

}  // namespace views
