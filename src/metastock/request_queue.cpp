#include "metastock/request_queue.h"

#include <algorithm>

#include "base/masks.h"
#include "feed/frame.h"

namespace metastock {
namespace {

constexpr int kTickMs = 100;
constexpr int kSecond = 1000 / kTickMs + 1;  // the first tick may come at once
constexpr float kFirstKnownDate = 104;       // below: the instrument is new

}  // namespace

std::string RequestText(const HistoryRequest& request) {
  const bool intraday = request.kind == HistoryRequest::Kind::intraday;
  const std::string date = base::masks::kSixDigits.Format(request.date);
  const std::string time = intraday ? base::masks::kSixDigits.Format(request.time) : std::string();
  if (date.empty() || (intraday && time.empty())) return {};
  std::string text(intraday ? "DATA:" : "DATD:");
  text.append(request.code.bytes()).append(date);
  if (intraday) text.append(":").append(time);
  return text.append(feed::kTerminador);
}

RequestQueue::RequestQueue(platform::Platform& platform, platform::Socket& socket)
    : platform_(platform),
      socket_(socket),
      timer_(platform, kTickMs, false),
      alive_(std::make_shared<const bool>(true)) {
  timer_.on_tick = [this] { Tick(); };
}

void RequestQueue::Add(const HistoryRequest& request) {
  const bool waits = std::any_of(jobs_.begin(), jobs_.end(), [&request](const Job& job) {
    return job.request.kind == request.kind && job.request.code == request.code;
  });
  if (waits || jobs_.size() >= kMostJobs) return;
  std::string text = RequestText(request);
  if (text.empty()) return;
  jobs_.push_back({request, std::move(text)});
  Changed();
}

void RequestQueue::Clear() {
  jobs_.clear();
  ++clears_;
}

void RequestQueue::Changed() {
  Connect();
  Advance();
  UpdateTimer();
}

void RequestQueue::Tick() {
  for (int* rest : {&connect_rest_, &ask_rest_}) *rest -= *rest > 0 ? 1 : 0;
  std::erase_if(resting_, [](Rest& rest) { return --rest.ticks <= 0; });
  Changed();
}

void RequestQueue::Connect() {
  using State = platform::Socket::State;
  if (jobs_.empty()) return;
  if (socket_.state() == State::error) socket_.Close();
  if (socket_.state() != State::closed || connect_rest_ > 0) return;
  connect_rest_ = kSecond;
  socket_.Connect();
}

void RequestQueue::Advance() {
  while (!jobs_.empty() && !asking_ && socket_.state() == platform::Socket::State::connected) {
    const Job& job = jobs_.front();
    // The text is the one from before the question: neither is repeated within a second.
    if (Rests(job.text)) return;
    if (job.request.date < kFirstKnownDate && !job.dated) {
      if (ask_rest_ > 0) return;
      AskLater();
    } else if (Send(job)) {
      jobs_.pop_front();
    } else {
      return;
    }
  }
}

bool RequestQueue::Rests(const std::string& text) const {
  return resting_.size() >= kMostJobs ||
         std::any_of(resting_.begin(), resting_.end(),
                     [&text](const Rest& rest) { return rest.text == text; });
}

bool RequestQueue::Send(const Job& job) {
  if (steps.Pidiendo) steps.Pidiendo(job.request);
  if (!socket_.Send(RequestText(job.request))) return false;
  resting_.push_back({job.text, kSecond});
  if (steps.Enviado) steps.Enviado(job.request.kind);
  return true;
}

void RequestQueue::AskLater() {
  asking_ = true;
  // A box that waits inside a handler of the socket would keep the others from it.
  platform_.Post([this, alive = std::weak_ptr(alive_), clears = clears_] {
    if (!alive.expired()) Ask(clears);
  });
}

void RequestQueue::Ask(std::uint32_t clears) {
  std::optional<float> date;
  if (clears == clears_ && steps.Preguntar) {
    const std::weak_ptr alive(alive_);
    date = steps.Preguntar(store::Codigo(jobs_.front().request.code));
    if (alive.expired()) return;
  }
  asking_ = false;
  // Whoever gives up gets a word in before the next question, whatever the server makes of it.
  if (!date || *date == 0) ask_rest_ = kSecond;
  if (clears == clears_) {
    jobs_.front().dated = true;
    if (date) jobs_.front().request.date = *date;
  }
  Changed();
}

void RequestQueue::UpdateTimer() {
  timer_.set_enabled(!jobs_.empty() || !resting_.empty() || connect_rest_ > 0 || ask_rest_ > 0);
}

}  // namespace metastock
