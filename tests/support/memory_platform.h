#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/platform.h"
#include "platform/window.h"
#include "support/bytes.h"
#include "support/fake_sheet.h"
#include "support/fake_socket.h"
#include "support/grid_text.h"
#include "support/temp_dir.h"

// The outside in memory: doubles with public records of what was asked and settable answers.
namespace support {

class FakeDialogs : public platform::Dialogs {
 public:
  std::vector<std::string> messages, questions, prompts;
  bool answer = true;
  std::string line;                  // what the user types when asked for a line
  std::optional<base::Color> color;  // that the user picks; none is giving up
  std::vector<base::Color> colors;   // that the boxes began with
  bool dismissed = false;
  int open = 0;  // boxes open at the moment
  /// Runs while a box is open: what the outside does meanwhile. Not for boxes above another.
  std::function<void()> while_open;

  void Message(std::string_view text) override;
  bool Ask(std::string_view text) override;
  std::string Input(std::string_view text) override;
  std::optional<base::Color> Color(base::Color current) override;
  void Dismiss() override { dismissed = true; }

 private:
  void StayOpen();
};

class FakeClipboard : public platform::Clipboard {
 public:
  std::string text;
  int clears = 0;

  void Clear() override {
    ++clears;
    text.clear();
  }
  void SetText(std::string_view utf8) override { text = utf8; }
};

class FakePrinter : public platform::Printer {
 public:
  struct Job {
    std::string title, text;  // `text` is all of the grid
  };
  std::vector<Job> jobs;

  void Print(const platform::Grid& grid, std::string_view title) override {
    jobs.push_back({std::string(title), grid.AllText()});
  }
};

class FakeSound : public platform::Sound {
 public:
  int beeps = 0;

  void Beep() override { ++beeps; }
};

class FakeOtherWindows : public platform::OtherWindows {
 public:
  Handle found = 0;              // the answer to the next questions
  std::vector<std::string> log;  // "find Class", "send 7 1042", "keys %{LEFT}"

  [[nodiscard]] Handle Find(std::string_view window_class) override {
    log.push_back("find " + std::string(window_class));
    return found;
  }
  void Send(Handle window, std::uint32_t message) override {
    log.push_back("send " + std::to_string(window) + " " + std::to_string(message));
  }
  void SendKeys(std::string_view keys) override { log.push_back("keys " + std::string(keys)); }
};

class FakeDesktop : public platform::Desktop {
 public:
  std::vector<std::string> log;  // "shown Caption", and so on
  platform::Control* focus = nullptr;
  std::vector<std::string> fonts{"DejaVu Sans", "Roboto"};

  void Shown(platform::Window& window) override { log.push_back("shown " + window.caption()); }
  void Raised(platform::Window& window) override { log.push_back("raised " + window.caption()); }
  void Hidden(platform::Window& window) override { log.push_back("hidden " + window.caption()); }
  void Closed(platform::Window& window) override { log.push_back("closed " + window.caption()); }
  void Focus(platform::Window&, platform::Control& control) override { focus = &control; }
  [[nodiscard]] std::vector<std::string> Fonts() const override { return fonts; }
};

/// Time stands still until `avanzar`; posted tasks wait for `RunPosted` or `avanzar`.
class MemoryPlatform : public platform::Platform {
 public:
  std::vector<FakeSocket*> sockets;  // alive ones, in order of making
  FakeDialogs boxes;
  std::vector<platform::ShippedFile> shipped{{"index.html", "<h1>Manual</h1>"}};
  platform::LocalTime clock{.year = 2000, .month = 4, .day = 26};  // stands still

  MemoryPlatform();
  ~MemoryPlatform() override;

  /// Moves time by `ms`: due timers fire in order of their due time, posted tasks run in between.
  /// May be called again from inside, as a box that waits does.
  void avanzar(int ms);
  /// Runs the posted tasks and those that they post; stops after 10000, which no honest chain
  /// reaches.
  void RunPosted();

  /// Timers that will fire if time moves on.
  [[nodiscard]] std::size_t running_timers() const { return running_timers_.size(); }

  [[nodiscard]] std::unique_ptr<platform::Socket> MakeSocket(
      platform::Socket::Events events) override;
  [[nodiscard]] std::unique_ptr<platform::TimerPort> MakeTimer(std::function<void()> tick) override;
  void Post(std::function<void()> task) override { posted_.push_back(std::move(task)); }
  [[nodiscard]] platform::LocalTime local_time() const override { return clock; }
  [[nodiscard]] FakeDesktop& desktop() override { return desktop_; }
  [[nodiscard]] FakeDialogs& dialogs() override { return boxes; }
  [[nodiscard]] FakeClipboard& clipboard() override { return clipboard_; }
  [[nodiscard]] FakePrinter& printer() override { return printer_; }
  [[nodiscard]] FakeSound& sound() override { return sound_; }
  [[nodiscard]] FakeOtherWindows& other_windows() override { return other_windows_; }
  [[nodiscard]] FakeSheet& spreadsheet() override { return sheet_; }
  [[nodiscard]] std::span<const platform::ShippedFile> manual() const override { return shipped; }

 private:
  class FakeTimer;

  [[nodiscard]] FakeTimer* NextDue(std::int64_t until) const;

  FakeDesktop desktop_;
  FakeClipboard clipboard_;
  FakePrinter printer_;
  FakeSound sound_;
  FakeOtherWindows other_windows_;
  FakeSheet sheet_;
  std::deque<std::function<void()>> posted_;
  std::vector<FakeTimer*> running_timers_;  // in order of their start
  std::int64_t now_ = 0;
};

}  // namespace support
