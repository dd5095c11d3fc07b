#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "shell/terminal.h"
#include "support/memory_platform.h"
#include "support/orders.h"
#include "support/wire.h"

/// A whole terminal on the in-memory platform.
class TerminalTest : public testing::Test {
 protected:
  /// Ends the terminal there is, if any.
  void Start() {
    ended = false;
    terminal.reset();
    terminal = std::make_unique<shell::Terminal>(outside, base::ProgramDir(dir.path()));
    terminal->on_end = [this] { ended = true; };
    terminal->Start();
  }

  [[nodiscard]] support::FakeSocket& feed() { return *outside.sockets.at(1); }
  [[nodiscard]] support::FakeSocket& history() { return *outside.sockets.at(0); }

  void TypeLogin() {
    terminal->Conecta.Text1.set_text("invitado");
    terminal->Conecta.Text2.set_text("secreto");
    terminal->Conecta.Command2.Click();
  }

  void LogIn() {
    TypeLogin();
    feed().Accept();
  }

  void LogIn(const char* code) {
    LogIn();
    feed().Arrive(support::Frame(
        "99,1   " +
        support::MasterRecord({.code = code, .name = "ACME", .previous = 9, .last = 10})));
  }

  void PressTool(int number) { terminal->MDI.ActiveBar1.Click({number, {}}); }

  void AgregarCartera(std::string_view name) {
    portfolios::FichaCartera record;
    record.Nombre = base::FixedText<25>::FromUtf8(name);
    ASSERT_TRUE(terminal->Carteras.AgregarCartera(record));
  }

  void Comprar(int cartera, std::string_view code, std::int32_t titulos, float precio) {
    ASSERT_TRUE(terminal->Carteras.AgregarOperacion(
        support::Order(code, titulos, precio, portfolios::Operacion::kCompra, cartera)));
  }

  support::TempDir dir;
  support::MemoryPlatform outside;
  std::unique_ptr<shell::Terminal> terminal;
  bool ended = false;
};
