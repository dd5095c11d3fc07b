#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <optional>
#include <string>

#include "desk.h"
#include "feed_process.h"
#include "prober.h"
#include "process.h"
#include "report.h"
#include "scenarios.h"

namespace load {
namespace {

/// How far the server time that the program shows falls behind its start, in seconds.
class Lag {
 public:
  void Look(const std::string& shown) {
    if (shown == shown_ || shown.size() != 8) return;
    shown_ = shown;
    const auto part = [&shown](std::size_t at) { return std::atoi(shown.substr(at, 2).c_str()); };
    const int market = part(0) * 3600 + part(3) * 60 + part(6);
    const double lag =
        std::chrono::duration<double>(Clock::now().time_since_epoch()).count() - market;
    least_ = std::min(least_.value_or(lag), lag);
    worst_ = std::max(worst_, lag - *least_);
    last_ = lag - *least_;
  }
  [[nodiscard]] double worst() const { return worst_; }
  [[nodiscard]] double last() const { return last_; }

 private:
  std::string shown_;
  std::optional<double> least_;
  double worst_ = 0, last_ = 0;
};

}  // namespace

bool Steady(double seconds, int more_instruments) {
  FeedProcess feed({"--quotes", "20000", "--even", "--hour", "10", "--instruments",
                    std::to_string(more_instruments)});
  Desk desk(feed.port());
  desk.ShowBoard();
  desk.LogIn();
  if (!RunUntil(20, [&] { return desk.records() > more_instruments + 30000; })) return false;

  Lag lag;
  std::atomic<std::int64_t> queued = 0;
  const int records = desk.records(), paints = desk.paints();
  const double used = ProcessorTime();
  const auto began = Clock::now();
  Prober prober([&] { lag.Look(desk.terminal.MDI.LT.caption()); },
                [&] { queued = std::max<std::int64_t>(queued, QueuedBytes(feed.port())); });
  RunFor(seconds);
  prober.Stop();
  const double passed = std::chrono::duration<double>(Clock::now() - began).count();

  Heading(("20,000 quotes a second, " + std::to_string(desk.terminal.store.NumInstrumentos()) +
           " instruments, board visible")
              .c_str());
  Line("quotes applied a second", (desk.records() - records) / passed, "");
  Line("wait of a posted event, median", prober.waits().At(0.5), "ms");
  Line("wait of a posted event, 99th percentile", prober.waits().At(0.99), "ms", 16);
  Line("wait of a posted event, longest", prober.waits().At(1), "ms", 50);
  Line("(the machine: late waking, 99th percentile)", prober.late().At(0.99), "ms");
  Line("(the machine: late waking, longest)", prober.late().At(1), "ms");
  Line("processor", (ProcessorTime() - used) / passed, "cores", 0.8);
  Line("paints of the board a second", (desk.paints() - paints) / passed, "", 62);
  Line("most bytes unsent or unread", static_cast<double>(queued) / 1024, "KiB");
  Line("server time shown late, at most", lag.worst(), "s", 0.5);
  Line("server time shown late, at the end", lag.last(), "s");
  return true;
}

}  // namespace load
