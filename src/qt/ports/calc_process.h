#pragma once

#include <memory>

#include "calc/pipe.h"

namespace qt {

/// The helper that speaks with the office, as a process of its own. It is told to end by the end of
/// its input, and never killed: in the middle of a call it would leave the office's list of steps
/// to undo open for good. One that waits for an office that stands still goes when that goes on.
/// What it says on standard error is lost, and so is what it is sent while 8 MiB wait.
class CalcProcess : public calc::Pipe {
 public:
  CalcProcess();
  ~CalcProcess() override;

  bool Start() override;
  [[nodiscard]] bool running() const override;
  void Send(std::string_view bytes) override;
  void Stop() override;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace qt
