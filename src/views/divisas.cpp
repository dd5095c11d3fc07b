#include "views/divisas.h"

namespace views {
namespace {

constexpr ColumnTable kTable{};

constexpr GridDesign kDesign{
    .caption = "Cotirama Divisas",
    .rect = {1500, 1500, 12000, 4500},
    .columns = kTable,
    .cam = "",
    .pos = "DV.POS",
    .entrada = 4,
    .registro = 4,
    .colors = ColorFamily::back,
    .bar = false,
    .timer_ms = 0,
    .layout = LayoutForm::widths_first,
};

}  // namespace

Divisas::Divisas(const GridContext& context) : GridView(context, kDesign) {}

void Divisas::OnLoad() {}
void Divisas::ColoresOn() {}
void Divisas::negotiv(std::int16_t) {}

}  // namespace views
