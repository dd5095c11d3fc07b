// Both ends, with an office in memory and the bytes between them cut small.

#include <gtest/gtest.h>

#include "calc/helper.h"
#include "calc/mirror.h"
#include "support/fake_office.h"
#include "support/fake_pipe.h"
#include "support/memory_platform.h"

namespace {

using Value = calc::Value;

struct Link {
  support::MemoryPlatform platform;
  support::FakePipe pipe;
  support::FakeOffice office;
  std::string said;
  calc::Helper helper{office, [this](std::string_view bytes) { said += bytes; }};
  calc::Mirror mirror{platform, pipe};
  bool attached = false;

  void Carry() {
    platform.RunPosted();
    while (!pipe.sent.empty() || !said.empty()) {
      for (const char c : pipe.TakeSent()) helper.Receive({&c, 1});
      for (const char c : std::exchange(said, {})) pipe.on_data({&c, 1});
    }
  }
  void Second() {
    helper.Look();
    Carry();
    platform.avanzar(1000);
    Carry();
  }
  void Attach() {
    mirror.Attach("Cotirama", [this](bool answer) { attached = answer; });
    Carry();
  }
};

TEST(Link, KeepsSheetAndCopyAlike) {
  Link link;
  link.office.cells = {{{2, 1}, "ALD"}, {{200, 1}, "REP"}};
  link.Attach();
  ASSERT_TRUE(link.attached);
  EXPECT_EQ(link.mirror.value(200, 1), Value("REP"));
  for (const int row : {2, 200}) {
    link.mirror.SetText(row, 2, "=TAB\tulado\n\\");
    link.mirror.SetFormula(row, 5, "=g2-c2");
    link.mirror.SetNumber(row, 7, 20.05);
    link.mirror.SetFore(row, 1, 13, 2);
  }
  link.Carry();
  EXPECT_EQ((link.office.cells[{200, 2}]), Value("=TAB\tulado\n\\"));
  EXPECT_EQ((link.office.cells[{2, 7}]), Value(20.05));
  EXPECT_EQ((link.office.formulas[{200, 5}]), "=g2-c2");
  EXPECT_EQ((link.office.fore[{200, 13}]), 2);

  link.office.cells[{2, 7}] = "mine";  // the user types
  link.office.cells[{3, 1}] = "tef";
  link.Second();
  EXPECT_EQ(link.mirror.value(2, 7), Value("mine"));
  EXPECT_EQ(link.mirror.value(3, 1), Value("tef"));
  link.office.cells[{2, 7}] = "again";  // and loses against a quote
  link.mirror.SetNumber(2, 7, 21);
  link.Second();
  link.Second();
  EXPECT_EQ((link.office.cells[{2, 7}]), Value(21.0));
  EXPECT_EQ(link.mirror.value(2, 7), Value(21.0));

  link.mirror.SetNumber(3, 7, 9);
  link.mirror.Detach();
  link.Carry();
  EXPECT_EQ((link.office.cells[{3, 7}]), Value(9.0));
  EXPECT_FALSE(link.helper.attached());
}

TEST(Link, FollowsASheetThatGoesAndComes) {
  Link link;
  link.office.name = "Hoja1";
  link.Attach();
  EXPECT_TRUE(link.attached && link.mirror.HasWindow());
  link.mirror.SetNumber(2, 7, 1);
  link.office.Open("Cotirama", {{{2, 1}, "ALD"}});
  link.Second();
  EXPECT_EQ(link.mirror.value(2, 1), Value("ALD"));
  EXPECT_EQ(link.mirror.value(2, 7), Value());

  link.mirror.SetNumber(2, 7, 2);  // waits while another document takes the place
  link.office.Open("Cotirama", {{{5, 1}, "REP"}});
  link.Second();
  EXPECT_EQ(link.mirror.value(2, 7), Value());
  EXPECT_EQ(link.mirror.value(5, 1), Value("REP"));
  link.mirror.SetNumber(5, 7, 3);
  link.Second();
  EXPECT_EQ(link.office.cells, (support::FakeOffice::Cells{{{5, 1}, "REP"}, {{5, 7}, 3.0}}));

  link.office.Quit();
  link.Second();
  EXPECT_FALSE(link.mirror.HasWindow());
  EXPECT_EQ(link.mirror.value(5, 1), Value());
  link.office.running = true;
  link.Second();
  EXPECT_FALSE(link.helper.attached());
}

}  // namespace
