#include "charts/hot.h"

namespace charts {
namespace {

constexpr views::ColumnTable kTable{};

constexpr views::GridDesign kDesign{
    .caption = "Hot",
    .rect = {300, 300, 14400, 9000},
    .columns = kTable,
    .cam = "MC.CAM",
    .pos = "HOT.POS",
};

}  // namespace

Hot::Hot(const views::GridContext& context, const TickFiles& ticks)
    : GridView(context, kDesign), ticks_(ticks) {
  (void)ticks_;
}

void Hot::ActuaHot(std::int16_t) {}
void Hot::Command4_Click() {}
void Hot::OnLoad() {}

}  // namespace charts
