#include "metastock/history_rows.h"

#include "base/bytes.h"

namespace metastock {
namespace {

using base::FieldAt;

constexpr float kOldestDate = 970101, kLatestDate = 1091231;
constexpr double kPesetasPerEuro = 166.386, kNextToNothing = 0.1;

}  // namespace

Bar DecodeIntraday(std::string_view row) {
  return {.Date = FieldAt<float>(row, 0),
          .Time = FieldAt<float>(row, 4),
          .Open = FieldAt<float>(row, 24),
          .High = FieldAt<float>(row, 8),
          .Low = FieldAt<float>(row, 12),
          .Close = FieldAt<float>(row, 16),
          .Volume = FieldAt<float>(row, 20)};
}

Bar DecodeDaily(std::string_view row) {
  return {.Date = FieldAt<float>(row, 0),
          .Time = FieldAt<float>(row, 4),
          .Open = FieldAt<float>(row, 100),
          .High = FieldAt<float>(row, 108),
          .Low = FieldAt<float>(row, 112),
          .Close = FieldAt<float>(row, 104),
          .Volume = FieldAt<float>(row, 24)};
}

bool IsFiller(const Bar& bar) { return bar.Date < 900000; }

void Repair(Bar& bar, float& lowprev) {
  if (lowprev / 2 > bar.Low) bar.Low = lowprev;
  if (bar.High / 2 > bar.Low) bar.Low = bar.Close;
  if (bar.High / 2 > bar.Low) bar.Low = bar.Close = bar.High;
  lowprev = bar.Low;
  // Years of two digits, from 2000 on.
  if (bar.Date < 980000) bar.Date += 1000000;
  if (bar.Close < bar.Low) bar.Close = bar.Low;
}

bool IsValidIntraday(const Bar& bar) {
  return bar.Date >= kOldestDate && bar.Date <= kLatestDate && bar.Time >= 0 && bar.Time <= 245959;
}

bool IsValidDaily(const Bar& bar) { return bar.Date >= 101 && bar.Date <= kLatestDate; }

void FillZeros(Bar& bar) {
  for (float* price : {&bar.Low, &bar.Open, &bar.High}) {
    if (*price == 0) *price = bar.Close;
  }
  if (bar.Volume < 0) bar.Volume = 0;
}

bool Complete(Bar& bar) {
  const auto lacks = [&bar] {
    return bar.Date == 0 || bar.Close == 0 || bar.High == 0 || bar.Low == 0;
  };
  if (lacks() || bar.Volume < 0) FillZeros(bar);
  return !lacks();
}

void ConvertPesetas(const store::Codigo& code, Bar& bar) {
  const bool three = code[3] == ' ' && code[4] == ' ' && static_cast<unsigned char>(code[2]) > ' ';
  if (!three || !(bar.Date < 990101)) return;
  for (float* price : {&bar.Close, &bar.High, &bar.Low, &bar.Open}) {
    *price = static_cast<float>(static_cast<double>(*price) / kPesetasPerEuro);
  }
}

bool IsWorthStoring(const Bar& bar) {
  const auto little = [](float price) { return static_cast<double>(price) <= kNextToNothing; };
  return !(little(bar.Low) && little(bar.Close) && little(bar.High) && little(bar.Open));
}

bool IsEndMarker(std::string_view row) { return row.starts_with(".-.-.-"); }

}  // namespace metastock
