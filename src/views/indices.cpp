#include "views/indices.h"

namespace views {
namespace {

constexpr ColumnTable kTable{};

constexpr GridDesign kIndices{
    .caption = "Cotirama Indices",
    .rect = {600, 600, 14400, 6000},
    .columns = kTable,
    .cam = "IN.CAM",
    .pos = "IN.POS",
    .entrada = 2,
    .registro = 2,
    .colors = ColorFamily::back,
    .timer_ms = 2000,
    .layout = LayoutForm::widths_first,
};

constexpr GridDesign kEstadisticas{
    .caption = "Estadísticas del Mercado",
    .rect = {900, 900, 14400, 6000},
    .columns = kTable,
    .cam = "IN.CAM",
    .pos = "ESTA.POS",
    .entrada = 2,
    .registro = 2,
    .colors = ColorFamily::back,
    .timer_ms = 2000,
    .layout = LayoutForm::widths_first,
};

}  // namespace

Indices::Indices(const GridContext& context) : IndexView(context, kIndices) {}
Estadisticas::Estadisticas(const GridContext& context) : IndexView(context, kEstadisticas) {}

void IndexView::OnLoad() {}
void IndexView::ColoresOn() {}
void IndexView::negotii(std::int16_t) {}

}  // namespace views
