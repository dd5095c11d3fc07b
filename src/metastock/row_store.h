#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "metastock/bars.h"
#include "metastock/reply_reader.h"
#include "metastock/stores.h"

namespace metastock {

/// Brings the rows of one reply into the bars of every entry of its code, a slice at a time, so
/// that other events may run in between. The tables may change meanwhile. What the constructor
/// takes outlives it.
class RowStore {
 public:
  struct Result {
    enum class End {
      rows_out,    // all rows were handled
      bad_row,     // one that can't be: what follows `date` and `time` is to be asked for again
      fillers,     // the same a minute later, after three in a row that are no rows
      end_marker,  // the server has no more rows of this instrument
    };
    End end = End::rows_out;
    float date = 0, time = 0;  // of the last good row; 0 when there was none
    bool is_long = false;      // more rows than one reply has
    std::string last_row;      // as it came; "" when none was looked at
  };

  RowStore(Stores& stores, Bars& bars) : stores_(stores), bars_(bars) {}

  /// The rows of `reply` replace those that are left.
  void Begin(Reply reply);
  void Drop() { running_ = false; }
  [[nodiscard]] bool running() const { return running_; }
  [[nodiscard]] const Reply& reply() const { return reply_; }

  /// Handles a few rows. The result once none is left.
  [[nodiscard]] std::optional<Result> Slice();

 private:
  using End = Result::End;

  /// What one row does to the store; nothing when it goes on.
  [[nodiscard]] std::optional<End> IntradayRow(std::string_view row);
  [[nodiscard]] std::optional<End> DailyRow(std::string_view row);
  void FindEntries();

  Stores& stores_;
  Bars& bars_;
  Reply reply_;
  bool running_ = false;
  std::size_t row_ = 0;  // to be handled next
  int fillers_ = 0;      // on end
  float date_ = 0, time_ = 0;
  float lowprev_ = 0;
  std::vector<int> entries_;  // of the code, while a slice runs
};

/// Every entry of `table` from 1 to `count` whose symbol stands for `code`.
template <typename Table>
[[nodiscard]] std::vector<int> EntriesOf(const Table& table, int count, const store::Codigo& code) {
  std::vector<int> entries;
  for (int i = 1; i <= count; ++i) {
    if (CodeOf(table[static_cast<std::size_t>(i)].Symbol.bytes()) == code) entries.push_back(i);
  }
  return entries;
}

}  // namespace metastock
