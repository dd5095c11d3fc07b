#include "views/opciones.h"

namespace views {
namespace {

constexpr ColumnTable kTable{};

constexpr GridDesign kDesign{
    .caption = "Cotirama Opciones",
    .rect = {1800, 1800, 14400, 6000},
    .columns = kTable,
    .cam = "",
    .pos = "FU.POS",
    .entrada = 3,
    .registro = 3,
    .colors = ColorFamily::back,
    .bar = false,
    .timer_ms = 0,
    .layout = LayoutForm::widths_first,
};

}  // namespace

Opciones::Opciones(const GridContext& context) : GridView(context, kDesign) {}

void Opciones::OnLoad() {}
void Opciones::negotiop(std::int16_t) {}

}  // namespace views
