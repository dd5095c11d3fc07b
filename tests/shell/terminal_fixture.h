#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "demo/feed.h"
#include "shell/terminal.h"
#include "support/memory_platform.h"
#include "support/wire.h"

/// A whole terminal on the in-memory platform, its feed socket joined to an embedded market.
class TerminalTest : public testing::Test {
 protected:
  void Start() {
    terminal = std::make_unique<shell::Terminal>(outside, base::ProgramDir(dir.path()));
    terminal->on_end = [this] { ended = true; };
    terminal->Start();
  }

  [[nodiscard]] support::FakeSocket& feed() { return *outside.sockets.at(0); }

  void LogIn() {
    terminal->Conecta.Text1.set_text("invitado");
    terminal->Conecta.Text2.set_text("secreto");
    terminal->Conecta.Command2.Click();
    feed().Accept();
  }

  void LogIn(const char* code) {
    LogIn();
    feed().Arrive(support::Frame(
        "99,1   " +
        support::MasterRecord({.code = code, .name = "ACME", .previous = 9, .last = 10})));
  }

  void PressTool(int number) { terminal->MDI.ActiveBar1.Click({number, {}}); }

  /// Lets `ms` pass on both sides of the wire, in steps of 100 ms.
  void Run(demo::Feed& market, int connection, int ms) {
    for (int passed = 0; passed < ms; passed += 100) {
      market.Receive(connection, feed().sent.substr(handed_over));
      handed_over = feed().sent.size();
      market.Advance(100);
      feed().Arrive(market.TakeOutput(connection));
      outside.avanzar(100);
    }
  }

  support::TempDir dir;
  support::MemoryPlatform outside;
  std::unique_ptr<shell::Terminal> terminal;
  bool ended = false;
  std::size_t handed_over = 0;
};
