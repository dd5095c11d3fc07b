#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/platform.h"
#include "platform/timer.h"
#include "store/instrument.h"

namespace metastock {

/// Asks for the history of an instrument from a moment on.
struct HistoryRequest {
  enum class Kind { intraday, daily };
  Kind kind = Kind::intraday;
  store::Codigo code;
  float date = 0, time = 0;
};

/// What is sent for it; "" where a number has no text.
[[nodiscard]] std::string RequestText(const HistoryRequest& request);

/// Requests that wait until the data channel is connected, first in first out; it connects the
/// channel, at most once a second, while some wait. The same one goes out once a second, and no
/// more than a hundred in all. A request for a new instrument first has its date asked of the user,
/// with other events running meanwhile; one who gives up isn't asked again for a second. No timer
/// runs once everything has been sent for a second. What the constructor takes outlives it.
class RequestQueue {
 public:
  static constexpr std::size_t kMostJobs = 100;

  struct Steps {
    /// The date that the user wants; none leaves the old one.
    std::function<std::optional<float>(const store::Codigo& code)> Preguntar;
    std::function<void(const HistoryRequest&)> Pidiendo;  // it goes out now
    std::function<void(HistoryRequest::Kind)> Enviado;    // it has gone out
  };

  RequestQueue(platform::Platform& platform, platform::Socket& socket);

  Steps steps;

  /// Left out while one of that kind and code waits, when a hundred do, and when it has no text.
  void Add(const HistoryRequest& request);
  /// None waits any more. What the user answers from now on counts for nothing.
  void Clear();
  [[nodiscard]] bool empty() const { return jobs_.empty(); }
  /// A request has gone out within the last second.
  [[nodiscard]] bool just_sent() const { return !resting_.empty(); }
  /// The state of the channel has changed.
  void Changed();

 private:
  struct Job {
    HistoryRequest request;
    std::string text;
    bool dated = false;  // by the user
  };
  struct Rest {
    std::string text;
    int ticks = 0;
  };

  void Tick();
  void Connect();
  void Advance();
  [[nodiscard]] bool Rests(const std::string& text) const;
  [[nodiscard]] bool Send(const Job& job);
  void AskLater();
  void Ask(std::uint32_t clears);
  void UpdateTimer();

  platform::Platform& platform_;
  platform::Socket& socket_;
  platform::Timer timer_;
  std::deque<Job> jobs_;
  std::vector<Rest> resting_;  // sent less than a second ago
  int connect_rest_ = 0;       // ticks until the channel may be connected again
  int ask_rest_ = 0;           // and until the user may be asked
  bool asking_ = false;
  std::uint32_t clears_ = 0;           // tells the answer to a question that has gone
  std::shared_ptr<const bool> alive_;  // ends with the queue
};

}  // namespace metastock
