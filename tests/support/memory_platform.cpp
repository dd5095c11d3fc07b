#include "support/memory_platform.h"

#include <algorithm>
#include <utility>

namespace support {

void FakeDialogs::Message(std::string_view text) {
  messages.emplace_back(text);
  StayOpen();
}

bool FakeDialogs::Ask(std::string_view text) {
  questions.emplace_back(text);
  StayOpen();
  return answer && !dismissed;
}

std::string FakeDialogs::Input(std::string_view text) {
  prompts.emplace_back(text);
  StayOpen();
  return dismissed ? std::string() : line;
}

std::optional<base::Color> FakeDialogs::Color(base::Color current) {
  colors.push_back(current);
  StayOpen();
  return dismissed ? std::nullopt : color;
}

void FakeDialogs::StayOpen() {
  if (++open == 1 && while_open) while_open();
  --open;
}

class MemoryPlatform::FakeTimer : public platform::TimerPort {
 public:
  FakeTimer(MemoryPlatform& platform, std::function<void()> tick)
      : platform_(platform), tick_(std::move(tick)) {}
  ~FakeTimer() override { Stop(); }

  void Start(int ms) override {
    Stop();
    period_ = std::max(ms, 1);
    due_ = platform_.now_ + period_;
    platform_.running_timers_.push_back(this);
  }
  void Stop() override { std::erase(platform_.running_timers_, this); }

  [[nodiscard]] std::int64_t due() const { return due_; }
  void Fire() {
    due_ += period_;
    const auto tick = tick_;  // the handler may end this timer
    tick();
  }

 private:
  MemoryPlatform& platform_;
  std::function<void()> tick_;
  std::int64_t due_ = 0;
  int period_ = 1;
};

MemoryPlatform::MemoryPlatform() = default;
MemoryPlatform::~MemoryPlatform() = default;

std::unique_ptr<platform::Socket> MemoryPlatform::MakeSocket(platform::Socket::Events events) {
  return std::make_unique<FakeSocket>(std::move(events), sockets);
}

std::unique_ptr<platform::TimerPort> MemoryPlatform::MakeTimer(std::function<void()> tick) {
  return std::make_unique<FakeTimer>(*this, std::move(tick));
}

MemoryPlatform::FakeTimer* MemoryPlatform::NextDue(std::int64_t until) const {
  const auto next = std::min_element(running_timers_.begin(), running_timers_.end(),
                                     [](auto* a, auto* b) { return a->due() < b->due(); });
  return next == running_timers_.end() || (*next)->due() > until ? nullptr : *next;
}

void MemoryPlatform::avanzar(int ms) {
  const std::int64_t until = now_ + ms;
  RunPosted();
  while (FakeTimer* timer = NextDue(until)) {
    now_ = std::max(now_, timer->due());
    timer->Fire();
    RunPosted();
  }
  // A box inside may have waited longer.
  now_ = std::max(now_, until);
}

void MemoryPlatform::RunPosted() {
  for (int n = 0; n < 10000 && !posted_.empty(); ++n) {
    const auto task = std::move(posted_.front());
    posted_.pop_front();
    task();
  }
}

}  // namespace support
