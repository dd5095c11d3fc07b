#include "prober.h"

#include <utility>

namespace load {
namespace {

constexpr auto kEvery = std::chrono::milliseconds(3);
constexpr int kThereEvery = 33;

}  // namespace

Prober::Prober(std::function<void()> here, std::function<void()> there)
    : here_(std::move(here)), there_(std::move(there)), thread_([this] { Run(); }) {}

void Prober::Stop() {
  stop_ = true;
  if (thread_.joinable()) thread_.join();
}

void Prober::Run() {
  auto due = Clock::now();
  for (int n = 1; !stop_; ++n) {
    due += kEvery;
    std::this_thread::sleep_until(due);
    const auto posted = Clock::now();
    late_.Add(posted - due);
    due = std::max(due, posted - kEvery);
    QMetaObject::invokeMethod(
        &context_,
        [this, posted] {
          waits_.Add(Clock::now() - posted);
          if (here_) here_();
        },
        Qt::QueuedConnection);
    if (there_ && n % kThereEvery == 0) there_();
  }
}

}  // namespace load
