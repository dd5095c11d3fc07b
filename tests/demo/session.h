#pragma once

#include <string_view>

#include "demo/feed.h"
#include "plain_terminal.h"

namespace demo {

/// A market and one terminal in it; by default a quiet one, in which only requests bring output.
class Session {
 public:
  explicit Session(const FeedOptions& options = {.quotes_per_second = 0, .start_second = 40'000})
      : feed(options), id(feed.Connect()) {}

  /// Sends, waits for one step and decodes.
  void Send(std::string_view bytes) {
    terminal.Clear();
    feed.Receive(id, bytes);
    Wait(20);
  }
  /// Reads once, or after every step of `step` milliseconds.
  void Wait(int ms) { Wait(ms, ms); }
  void Wait(int ms, int step) {
    for (int passed = 0; passed < ms; passed += step) {
      feed.Advance(step);
      terminal.Read(feed.TakeOutput(id));
    }
  }

  Feed feed;
  int id;
  PlainTerminal terminal;
};

}  // namespace demo
