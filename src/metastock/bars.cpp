#include "metastock/bars.h"

#include <algorithm>
#include <span>

#include "metastock/bar_files.h"
#include "metastock/bar_steps.h"
#include "store/code_scan.h"

namespace metastock {
namespace {

using Codes = Stores::Table<std::uint64_t>;

constexpr float kFirstFeedDate = 1000100;

bool IsEntry(int entry) { return entry >= 1 && entry <= Stores::kMaxEntries; }

// A last price at or below half the high of the day is no price.
bool IsGoodTick(const Bar& bar) { return bar.High / 2 < bar.Close; }

// The first entry of `code` from `from` on; `end` where there is none.
std::size_t NextOf(const Codes& codes, std::uint64_t code, std::size_t from, std::size_t end) {
  const std::size_t blocks = (end - from) / store::kCodeBlock * store::kCodeBlock;
  const int found = store::FindCode(std::span(codes).subspan(from, blocks), code);
  if (found >= 0) return from + static_cast<std::size_t>(found);
  const auto rest = codes.begin() + static_cast<std::ptrdiff_t>(from + blocks);
  const auto last = codes.begin() + static_cast<std::ptrdiff_t>(end);
  return static_cast<std::size_t>(std::find(rest, last, code) - codes.begin());
}

// Every selected entry of `code`, in order.
template <typename Each>
void ForEachOf(const Codes& codes, const Stores::Table<std::int16_t>& selected, std::int16_t count,
               std::uint64_t code, Each each) {
  const auto end = static_cast<std::size_t>(count) + 1;
  for (std::size_t i = NextOf(codes, code, 1, end); i < end; i = NextOf(codes, code, i + 1, end)) {
    if (selected[i] == 1) each(static_cast<int>(i));
  }
}

// False where there is nothing to write.
bool WriteChange(Stores& stores, std::size_t i, Change change, const Bar& bar) {
  if (change == Change::none) return false;
  WriteIntradayBar(stores.IntradayFile(stores.EMasterTable[i].FileNumber, Cut::single_blank),
                   stores.EMasterWide[i] == 1, change == Change::followed, bar);
  return true;
}

}  // namespace

Bars::Bars(Stores& stores, const store::InstrumentStore& instruments, platform::Platform& platform)
    : stores_(stores), instruments_(instruments), platform_(platform) {}

void Bars::ActualizarBarras(std::int16_t slot) {
  const store::Instrumento& instrument = instruments_.Instrumentos(slot);
  const std::uint64_t code = store::WholeCode(instrument.Codigo);
  const Stores& tables = stores_;
  ForEachOf(tables.EMasterCodes, tables.EMasterSelected, tables.EMasterCount, code, [&](int entry) {
    Bar bar = BarOf(instrument);
    if (IsGoodTick(bar)) UpdateLiveIntraday(entry, bar);
  });
  ForEachOf(tables.MasterCodes, tables.MasterSelected, tables.MasterCount, code, [&](int entry) {
    Bar bar = BarOf(instrument);
    // The number is that of the daily table, so another intraday entry than its own may move.
    if (IsGoodTick(bar)) UpdateLiveIntraday(entry, bar);
    UpdateDaily(entry, bar);
  });
}

void Bars::UpdateLiveIntraday(int entry, Bar& bar) {
  if (!IsEntry(entry)) return;
  const auto i = static_cast<std::size_t>(entry);
  const Change change = TakeQuote(stores_.BarState[i], stores_.EMasterTable[i].Period, bar);
  if (WriteChange(stores_, i, change, bar) && on_live) on_live();
}

void Bars::UpdateHistoricIntraday(int entry, Bar& bar) {
  if (!IsEntry(entry)) return;
  const auto i = static_cast<std::size_t>(entry);
  const Change change = TakeRow(stores_.BarState[i], stores_.EMasterTable[i].Period, bar);
  (void)WriteChange(stores_, i, change, bar);
}

void Bars::UpdateDaily(int entry, const Bar& bar) {
  if (!IsEntry(entry) || LacksPrices(bar)) return;
  const auto i = static_cast<std::size_t>(entry);
  const int file = stores_.MasterTable[i].FileNumber;
  if (stores_.MasterWide[i] == 1) {
    WriteWideDailyBar(stores_, file, bar);
  } else {
    WriteNarrowDailyBar(stores_.DailyFile(file, Stores::Cut::single_blank), bar);
  }
}

Bar Bars::BarOf(const store::Instrumento& instrument) const {
  Bar bar{.Date = instrument.Fecha,
          .Time = instrument.Hora,
          .Open = instrument.Apertura,
          .High = instrument.Maximo,
          .Low = instrument.Minimo,
          .Close = instrument.Ultimo,
          .Volume = instrument.Volumen};
  MendLow(bar);
  if (bar.Date < kFirstFeedDate) bar.Date = DateWithoutFeed();
  return bar;
}

// "yymmdd" of today as a number, and 1: no date of any form, but what such bars have always had.
float Bars::DateWithoutFeed() const {
  const platform::LocalTime now = platform_.local_time();
  return static_cast<float>(now.year % 100 * 10000 + now.month * 100 + now.day + 1);
}

}  // namespace metastock
