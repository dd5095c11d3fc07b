#include "views/indices.h"

#include "views/market_columns.h"

namespace views {
namespace {

constexpr auto kColumns =
    Followed(kPriceColumns, kVolumen, kEfectivo, kPonderado, kSaldos, kHora, kPesetas, kHora);

constexpr ColumnTable kTable = FlaggedTable(kColumns);

constexpr GridDesign Design(std::string_view caption, const platform::Rect& rect,
                            std::string_view pos) {
  return {
      .caption = caption,
      .rect = rect,
      .columns = kTable,
      .cam = "IN.CAM",
      .pos = pos,
      .entrada = 2,
      .registro = 2,
      .colors = ColorFamily::back,
      .bar_top = 1,
      .timer_ms = 2000,
      .layout = LayoutForm::widths_first,
  };
}

constexpr GridDesign kIndices = Design("Cotirama Indices", {300, 600, 18450, 6000}, "IN.POS");
constexpr GridDesign kEstadisticas =
    Design("Estadísticas del Mercado", {450, 900, 18450, 6000}, "ESTA.POS");

}  // namespace

Indices::Indices(const GridContext& context) : IndexView(context, kIndices) {}
Estadisticas::Estadisticas(const GridContext& context) : IndexView(context, kEstadisticas) {}

void IndexView::ColoresOn() {
  ReadColors(/*write_first=*/false);
  BuildColumns();
  for (const std::int16_t slot : SlotsOf({"I ", "ST"})) negotii(slot);
}

}  // namespace views
