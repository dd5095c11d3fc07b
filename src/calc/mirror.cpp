#include "calc/mirror.h"

#include <limits>
#include <string>
#include <utility>

#include "calc/lines.h"
#include "calc/sheet_copy.h"
#include "platform/timer.h"

namespace calc {
namespace {

constexpr int kBatchMs = 500, kAnswerMs = 20000;
constexpr int kAnyNumber = std::numeric_limits<int>::max();

}  // namespace

struct Mirror::State : std::enable_shared_from_this<Mirror::State> {
  enum class Phase { off, asked, on };

  State(platform::Platform& p, Pipe& q) : platform(p), pipe(q) {
    pace.on_tick = [this] {
      pace.set_enabled(false);
      SendIfDue();
    };
    answer_limit.on_tick = [this] {
      pipe.Stop();
      Lost();
    };
  }

  void Attach(std::string_view name, std::function<void(bool attached)> done);
  void Leave();
  void Reset();
  void Lost();
  void Answer(bool attached);

  /// To be called after every change: makes sure that what waits goes out.
  void Changed();
  void SendIfDue();
  void SendBatch();

  void Take(std::string_view line);
  void ChooseSheet(int number);

  platform::Platform& platform;
  Pipe& pipe;
  platform::Timer pace{platform, kBatchMs, false};  // on for a while after each batch
  platform::Timer answer_limit{platform, kAnswerMs, false};
  LineReader reader;
  RowLine row;
  std::string out;
  SheetCopy copy;
  Phase phase = Phase::off;
  bool window = false, posted = false;
  int attach = 0;  // number of the last `Attach` or `Detach`
  int sheet = 0;   // as the helper counts them; 0 is none
  int last_batch = 0;
  int in_flight = 0;  // number of the batch that isn't taken in yet
  std::function<void(bool attached)> done;
};

void Mirror::State::Attach(std::string_view name, std::function<void(bool attached)> on_answer) {
  Leave();
  done = std::move(on_answer);
  phase = Phase::asked;
  answer_limit.set_enabled(true);
  if (!pipe.running()) {
    reader.Clear();
    const bool started = pipe.Start();
    if (phase != Phase::asked) return;  // it has ended already
    if (!started) return Lost();
  }
  out = "attach";
  AppendInteger(out, attach);
  out += '\t';
  AppendEscaped(out, name);
  out += '\n';
  pipe.Send(out);
}

// What was written still goes out, whatever is on its way.
void Mirror::State::Leave() {
  if (copy.waiting()) SendBatch();
  Reset();
}

void Mirror::State::Reset() {
  ++attach;
  phase = Phase::off;
  window = false;
  sheet = in_flight = 0;
  done = {};
  copy.Forget();
  pace.set_enabled(false);
  answer_limit.set_enabled(false);
}

void Mirror::State::Lost() {
  if (phase == Phase::off) return;
  auto on_answer = std::exchange(done, {});
  Reset();
  if (!on_answer) return;
  platform.Post([weak = weak_from_this(), number = attach, on_answer = std::move(on_answer)] {
    const auto self = weak.lock();
    if (self && self->attach == number) on_answer(false);
  });
}

void Mirror::State::Answer(bool attached) {
  const auto on_answer = std::exchange(done, {});
  if (attached) {
    phase = Phase::on;
    answer_limit.set_enabled(false);
    Changed();
  } else {
    Reset();
  }
  on_answer(attached);
}

void Mirror::State::Changed() {
  if (posted || pace.enabled() || in_flight != 0 || !copy.waiting()) return;
  posted = true;
  platform.Post([weak = weak_from_this()] {
    const auto self = weak.lock();
    if (!self) return;
    self->posted = false;
    self->SendIfDue();
  });
}

void Mirror::State::SendIfDue() {
  if (phase == Phase::on && copy.waiting() && !pace.enabled() && in_flight == 0) SendBatch();
}

void Mirror::State::SendBatch() {
  out.clear();
  AppendLine(out, "write", {++last_batch, sheet});
  const std::size_t head = out.size();
  copy.AppendBatch(out);
  if (out.size() == head) return;  // colours that are back at what they were
  AppendLine(out, "end", {last_batch});
  in_flight = last_batch;
  pace.set_enabled(true);
  pipe.Send(out);
}

void Mirror::State::Take(std::string_view line) {
  if (phase == Phase::off) return;
  Fields fields(line);
  const std::string_view word = fields.Word();
  if (word == "row") {
    if (ReadRow(fields, row)) copy.Take(row);
    return;
  }
  const int number = fields.Integer(0, kAnyNumber);
  if (word == "attached") {
    const bool attached = fields.Integer(0, 1) != 0;
    if (fields.Done() && phase == Phase::asked && number == attach) Answer(attached);
  } else if (!fields.Done()) {
    return;
  } else if (word == "done" && number != 0 && number == in_flight) {
    in_flight = 0;
    copy.TakenIn();
    SendIfDue();
  } else if (word == "sheet") {
    ChooseSheet(number);
  } else if (word == "window") {
    window = number != 0;
  }
}

void Mirror::State::ChooseSheet(int number) {
  sheet = number;
  if (number != 0) {
    copy.Open();
  } else {
    copy.Forget();
  }
}

Mirror::Mirror(platform::Platform& platform, Pipe& pipe)
    : state_(std::make_shared<State>(platform, pipe)) {
  pipe.on_data = [weak = state_->weak_from_this()](std::string_view bytes) {
    const auto state = weak.lock();
    if (state) state->reader.Feed(bytes, [&](std::string_view line) { state->Take(line); });
  };
  pipe.on_end = [weak = state_->weak_from_this()] {
    if (const auto state = weak.lock()) state->Lost();
  };
}

Mirror::~Mirror() = default;

void Mirror::Attach(std::string_view sheet, std::function<void(bool attached)> done) {
  state_->Attach(sheet, std::move(done));
}

void Mirror::Detach() {
  if (state_->phase == State::Phase::off) return state_->Reset();
  state_->Leave();
  state_->pipe.Send("detach\n");
}

bool Mirror::HasWindow() const { return state_->phase == State::Phase::on && state_->window; }
void Mirror::SendToWindow(std::uint32_t /*message*/) {}
std::uint32_t Mirror::codes_version() const { return state_->copy.codes_version(); }
const Mirror::Value& Mirror::value(int row, int col) const { return state_->copy.value(row, col); }

void Mirror::SetNumber(int row, int col, double number) {
  state_->copy.SetNumber(row, col, number);
  state_->Changed();
}

void Mirror::SetText(int row, int col, std::string_view text) {
  state_->copy.SetText(row, col, text);
  state_->Changed();
}

void Mirror::SetFormula(int row, int col, std::string_view formula) {
  state_->copy.SetFormula(row, col, formula);
  state_->Changed();
}

void Mirror::SetFore(int row, int first, int last, base::Color color) {
  state_->copy.SetFore(row, first, last, color);
  state_->Changed();
}

void Mirror::SetBack(int row, int col, base::Color color) {
  state_->copy.SetBack(row, col, color);
  state_->Changed();
}

}  // namespace calc
