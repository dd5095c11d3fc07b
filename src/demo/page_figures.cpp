#include "demo/page_figures.h"

#include <string_view>

#include "base/masks.h"

namespace demo::pages {
namespace {

constexpr base::Mask kFineRate{"###,##0.0000"};

const base::Mask& MaskOf(int scale) {
  return scale <= 100 ? base::masks::kPrice : scale <= 1000 ? base::masks::kRate : kFineRate;
}

}  // namespace

std::string PriceText(const Instrument& state, std::int64_t units) {
  return MaskOf(state.scale).Format(static_cast<double>(units) / state.scale);
}

double ChangeOf(const Instrument& state) {
  if (state.previous == 0) return 0;
  return static_cast<double>(state.last) * 100 / static_cast<double>(state.previous) - 100;
}

std::string ChangeText(const Instrument& state) {
  const double change = ChangeOf(state);
  const std::string text = base::masks::kPercent.Format(change);
  return change > 0 && text != "0.00" ? "+" + text : text;
}

std::string CountText(std::int64_t count) {
  return base::masks::kWhole.Format(static_cast<double>(count));
}

std::string ThousandsText(double cash) { return base::masks::kWhole.Format(cash / 1000); }

std::string TimeText(int time) { return base::masks::kTime.Format(static_cast<double>(time)); }

std::string DayText(std::chrono::sys_days day) {
  constexpr std::string_view kNames[] = {"domingo", "lunes",   "martes", "miércoles",
                                         "jueves",  "viernes", "sábado"};
  const std::chrono::year_month_day date(day);
  const unsigned number = static_cast<unsigned>(date.day()) * 10000 +
                          static_cast<unsigned>(date.month()) * 100 +
                          static_cast<unsigned>(static_cast<int>(date.year()) % 100);
  return std::string(kNames[std::chrono::weekday(day).c_encoding()]) + " " +
         base::masks::kDate.Format(static_cast<double>(number));
}

}  // namespace demo::pages
