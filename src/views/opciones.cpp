#include "views/opciones.h"

#include "views/market_columns.h"

namespace views {
namespace {

constexpr Columna kOwnSaldos{" Saldos ", Campo::Saldo, kSaldos.width};
constexpr auto kColumns =
    Followed(kPriceColumns, kVolumen, kEfectivo, kPonderado, kOwnSaldos, kHora, kFecha);

constexpr ColumnTable kTable{
    .name_width = kNameWidth,
    .design = kColumns,
};

constexpr GridDesign kDesign{
    .caption = "Cotirama Opciones",
    .rect = {1800, 1800, 17670, 6000},
    .columns = kTable,
    .cam = "",
    .pos = "FU.POS",
    .entrada = 3,
    .registro = 3,
    .colors = ColorFamily::back,
    .timer_ms = 0,
    .layout = LayoutForm::widths_first,
};

}  // namespace

Opciones::Opciones(const GridContext& context) : GridView(context, kDesign) {}

void Opciones::AddRows() { AddNameRows({".C", ".P"}); }

void Opciones::negotiop(std::int16_t indice) {
  if (!IsSlot(indice)) return;
  const store::Instrumento& record = context().store.Instrumentos(indice);
  BuildRow(record);
  if (const int row = FindPaddedRow()) {
    FlashRow(row, RowColor(record));
  } else if (const int added = AppendRow()) {
    PaintRow(added, RowColor(record));
  }
}

}  // namespace views
