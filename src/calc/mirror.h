#pragma once

#include <memory>

#include "calc/pipe.h"
#include "platform/platform.h"
#include "platform/spreadsheet.h"

namespace calc {

/// The terminal's end of the helper: a sheet of which it holds a copy. Starts the helper with the
/// first `Attach`. What is written is collected, the newest value of a cell only, and sent twice a
/// second at most, and not before the helper has taken in what was sent last: an office that is
/// slow or stands still costs nothing here. Lines that make no sense are ignored; a helper that
/// ends is started again by the next `Attach` only, one that leaves an `Attach` without an answer
/// for 20 seconds is ended. Nothing ticks while nothing is to be sent.
class Mirror : public platform::Spreadsheet {
 public:
  /// Both outlive it.
  Mirror(platform::Platform& platform, Pipe& pipe);
  ~Mirror() override;

  void Attach(std::string_view sheet, std::function<void(bool attached)> done) override;
  void Detach() override;
  [[nodiscard]] bool HasWindow() const override;
  /// Without effect: no office takes messages by number.
  void SendToWindow(std::uint32_t message) override;
  [[nodiscard]] std::uint32_t codes_version() const override;
  [[nodiscard]] const Value& value(int row, int col) const override;
  void SetNumber(int row, int col, double number) override;
  void SetText(int row, int col, std::string_view text) override;
  void SetFormula(int row, int col, std::string_view formula) override;
  void SetFore(int row, int first, int last, base::Color color) override;
  void SetBack(int row, int col, base::Color color) override;

 private:
  struct State;
  std::shared_ptr<State> state_;  // what waits in the event loop may outlast it
};

}  // namespace calc
