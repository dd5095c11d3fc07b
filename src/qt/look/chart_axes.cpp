#include "qt/look/chart_axes.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "qt/look/text.h"

namespace qt {
namespace {

constexpr double kMinute = 60, kDay = 86400;
constexpr std::array kSteps{1.0,   2.0,   5.0,    10.0,   15.0,   30.0,    60.0,    120.0,   300.0,
                            600.0, 900.0, 1800.0, 3600.0, 7200.0, 10800.0, 21600.0, 43200.0, kDay};
constexpr double kAlike = 1e-9;
constexpr qsizetype kLongestPrice = 14, kHoursAndMinutes = 5;

}  // namespace

QString PriceText(const charts::Chart& chart, double price) {
  const QString text = Text(chart.TextoPrecio(price));
  return text.size() <= kLongestPrice ? text : QString::number(price, 'g', 6);
}

QCPRange RangeOf(double low, double high) {
  if (!std::isfinite(low) || !std::isfinite(high)) return {0, 1};
  const double least = std::max({std::abs(low) * 1e-9, std::abs(high) * 1e-9, 1e-9});
  return high - low < least ? QCPRange(low - least, low + least) : QCPRange(low, high);
}

double TimeTicker::getTickStep(const QCPRange& range) {
  const double finest = range.size() / std::max(mTickCount, 1);
  const auto step = std::ranges::lower_bound(kSteps, finest);
  step_ = step != kSteps.end() ? *step : std::ceil(finest / kDay) * kDay;
  return step_;
}

QString TimeTicker::getTickLabel(double tick, const QLocale&, QChar, int) {
  const QString time = Text(charts::Chart::TextoHora(tick));
  return step_ < kMinute ? time : time.left(kHoursAndMinutes);
}

// Of 1, 2, 5, 10 and so on: a quarter would need another decimal.
double PriceTicker::getTickStep(const QCPRange& range) {
  const int decimals = scene_.chart ? scene_.chart->decimals() : 0;
  const double finest = std::max(range.size() / std::max(mTickCount, 1), std::pow(10, -decimals));
  const double decade = std::pow(10, std::floor(std::log10(finest) + kAlike));
  for (const double times : {1, 2, 5}) {
    if (finest <= times * decade * (1 + kAlike)) return times * decade;
  }
  return 10 * decade;
}

QString PriceTicker::getTickLabel(double tick, const QLocale&, QChar, int) {
  return scene_.chart ? PriceText(*scene_.chart, tick) : QString();
}

}  // namespace qt
