#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "demo/history.h"
#include "demo/history_wire.h"

namespace demo {

/// Says when a channel is to fail instead of answering; never twice in a row. Counts over all
/// channels, so that a terminal that comes back is answered.
class Outages {
 public:
  /// Called once for each request that could do without an answer for a while.
  [[nodiscard]] bool Due() { return ++asked_ % kEvery == kFirst; }

 private:
  static constexpr int kFirst = 12, kEvery = 40;
  int asked_ = 0;
};

/// The server's side of one terminal's data channel: history in answer to requests. Not tidier than
/// a real one: of some shares one reply comes with a bad row in it, some days end in a marker, long
/// replies break off, and now and then the line is cut. Any bytes may come: unterminated text past
/// 4 KiB and what is no request are dropped, and so are requests while a hundred wait. What the
/// constructor takes outlives it.
class DataChannel {
 public:
  static constexpr std::size_t kMostUnfinished = 4096;
  static constexpr std::size_t kMostWaiting = 100;
  static constexpr std::size_t kMostParts = 2000;  // in one reply; more than 1,900 aren't all

  DataChannel(const History& history, Outages& outages) : history_(history), outages_(outages) {}

  void Receive(std::string_view bytes);
  [[nodiscard]] bool IsAsked() const { return !requests_.empty(); }
  /// The answer to the next request, up to 64 KiB; nothing when the line is cut instead. A
  /// terminal reads one reply at a time: the next one must not follow at once. Somebody must have
  /// asked.
  [[nodiscard]] std::optional<std::string> Answer();

 private:
  using Request = history_wire::Request;

  void Handle(std::string_view message);
  [[nodiscard]] std::string AnswerParts(const Request& request, std::optional<std::size_t> slot);
  [[nodiscard]] std::string AnswerDays(const Request& request, std::optional<std::size_t> slot);
  [[nodiscard]] bool MayFail(const Request& request) const;
  [[nodiscard]] bool Spoils(std::size_t slot, bool daily);

  const History& history_;
  Outages& outages_;
  std::string input_;
  std::deque<Request> requests_;
  std::optional<Code> unfinished_;                  // whose reply has broken off
  std::set<std::pair<std::size_t, bool>> spoiled_;  // slot, daily: have had their bad row
};

}  // namespace demo
