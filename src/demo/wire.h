#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "demo/events.h"
#include "demo/instrument.h"
#include "demo/order_book.h"

// Market messages as terminals read them.
namespace demo::wire {

/// Time HHMMSS and date (years from 1900).
[[nodiscard]] std::string Clock(int time, int date);

// One record each, appended.
void AppendTrade(std::string& out, const TradeEvent& trade);
void AppendQuote(std::string& out, const QuoteEvent& quote);
void AppendBook(std::string& out, const Instrument& state, const OrderBook& book);
void AppendMaster(std::string& out, const Instrument& state, int date);

/// Records of one kind, put into messages of at most 98: one of 99 would pass for a batch of
/// instruments. A record is left out when its bytes would make a terminal take the message for a
/// page; its instrument's next one follows soon.
class Batches {
 public:
  enum class Kind { kTrades, kQuotes, kBooks, kInstruments };
  static constexpr std::size_t kMostRecords = 98;

  explicit Batches(Kind kind) : kind_(kind) {}

  /// Appends one record with `append(std::string&)`.
  template <typename Append>
  void Add(Append append) {
    if (count_ == 0) Open();
    const std::size_t before = current_.size();
    append(current_);
    if (LooksLikePage(before)) {
      current_.resize(before);
      return;
    }
    if (++count_ == kMostRecords) Close();
  }

  /// Appends the messages to `messages` and starts anew.
  void TakeInto(std::vector<std::string>& messages);

 private:
  void Open();
  void Close();
  [[nodiscard]] bool LooksLikePage(std::size_t from) const;

  Kind kind_;
  std::string current_;
  std::size_t count_ = 0;
  std::vector<std::string> messages_;
};

}  // namespace demo::wire
