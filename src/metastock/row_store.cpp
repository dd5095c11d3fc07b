#include "metastock/row_store.h"

#include <utility>

#include "metastock/history_rows.h"

namespace metastock {
namespace {

// Of a slice. A bar costs some calls of the system, a row that isn't stored next to nothing.
constexpr std::size_t kMostBars = 50, kMostRows = 5000;
constexpr int kMostFillers = 3;
constexpr std::size_t kLongReply = 1900;

}  // namespace

void RowStore::Begin(Reply reply) {
  reply_ = std::move(reply);
  running_ = true;
  // The first row of an intraday reply is no part of the history.
  row_ = reply_.kind == Reply::Kind::intraday ? 1 : 0;
  fillers_ = 0;
  date_ = time_ = lowprev_ = 0;
}

std::optional<RowStore::Result> RowStore::Slice() {
  const bool daily = reply_.kind == Reply::Kind::daily;
  const std::size_t width = daily ? kDailyRow : kIntradayRow;
  const std::size_t count = reply_.rows.size() / width;
  const std::string_view rows = reply_.rows;
  const std::size_t begin = row_;
  FindEntries();
  std::optional<End> end;
  for (std::size_t bars = 0; !end && row_ < count; bars += entries_.size()) {
    if (bars >= kMostBars || row_ - begin >= kMostRows) return {};
    const std::string_view row = rows.substr(row_++ * width, width);
    end = daily ? DailyRow(row) : IntradayRow(row);
  }
  running_ = false;
  const bool seen = row_ > (daily ? 0U : 1U);
  return Result{.end = end.value_or(End::rows_out),
                .date = date_,
                .time = time_,
                .is_long = !daily && count > kLongReply,
                .last_row = seen ? std::string(rows.substr((row_ - 1) * width, width)) : ""};
}

std::optional<RowStore::End> RowStore::IntradayRow(std::string_view row) {
  Bar bar = DecodeIntraday(row);
  if (IsFiller(bar)) {
    return ++fillers_ == kMostFillers ? std::optional(End::fillers) : std::nullopt;
  }
  fillers_ = 0;
  Repair(bar, lowprev_);
  if (!IsValidIntraday(bar)) return End::bad_row;
  date_ = bar.Date;
  time_ = bar.Time;
  if (!Complete(bar)) return {};
  ConvertPesetas(reply_.code, bar);
  if (!IsWorthStoring(bar)) return {};
  for (const int entry : entries_) {
    Bar own = bar;
    bars_.UpdateHistoricIntraday(entry, own);
  }
  return {};
}

std::optional<RowStore::End> RowStore::DailyRow(std::string_view row) {
  if (IsEndMarker(row)) return End::end_marker;
  Bar bar = DecodeDaily(row);
  if (!IsValidDaily(bar)) return End::bad_row;
  date_ = bar.Date;
  FillZeros(bar);
  if (bar.Close == 0) return {};
  for (const int entry : entries_) bars_.UpdateDaily(entry, bar);
  return {};
}

void RowStore::FindEntries() {
  entries_ = reply_.kind == Reply::Kind::daily
                 ? EntriesOf(stores_.MasterTable, stores_.MasterCount, reply_.code)
                 : EntriesOf(stores_.EMasterTable, stores_.EMasterCount, reply_.code);
}

}  // namespace metastock
