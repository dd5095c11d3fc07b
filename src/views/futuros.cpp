#include "views/futuros.h"

namespace views {
namespace {

constexpr ColumnTable kTable{};

constexpr GridDesign kDesign{
    .caption = "Cotirama Futuros",
    .rect = {1200, 1200, 14400, 4500},
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

void Futuros::OnLoad() {}
void Futuros::ColoresOn() {}
void Futuros::negotio(std::int16_t) {}

}  // namespace views
