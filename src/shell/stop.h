#pragma once

namespace shell {

class Terminal;

/// The orderly end of the program: the feed falls silent before any window goes, then all windows
/// but the main one are unloaded, then the program ends. It waits for nothing itself: each second
/// of the main window lets it go as far as it can. Takes three of them, or five where the feed
/// socket doesn't close. Writes no file. `terminal` outlives it.
class Stop {
 public:
  explicit Stop(Terminal& terminal) : terminal_(terminal) {}

  /// To be called once.
  void Begin();
  /// Another second has begun.
  void Advance();

 private:
  enum class Stage { none, closing, views_at_rest, unloaded, ended };

  void Silence();
  void UnloadWindows();
  void End();

  Terminal& terminal_;
  Stage stage_ = Stage::none;
};

}  // namespace shell
