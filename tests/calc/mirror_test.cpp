#include "calc/mirror.h"

#include <cmath>
#include <gtest/gtest.h>

#include "support/fake_pipe.h"
#include "support/memory_platform.h"

namespace {

using Value = calc::Mirror::Value;

// The terminal's end, with a helper whose lines the test writes.
struct Terminal {
  support::MemoryPlatform platform;
  support::FakePipe pipe;
  calc::Mirror mirror{platform, pipe};
  std::string answers;

  void Attach() {
    mirror.Attach("Coti\trama", [this](bool attached) { answers += attached ? '+' : '-'; });
  }
  void Hear(std::string_view lines) { pipe.on_data(lines); }
  void AttachToSheet() {
    Attach();
    Hear("window\t1\nsheet\t7\nrow\t2\t1\t'ALD\nattached\t1\t1\n");
    pipe.sent.clear();
  }
  std::string Sent(int ms) {
    platform.avanzar(ms);
    return pipe.TakeSent();
  }
};

TEST(Mirror, AnswersAnAttachOnce) {
  Terminal t;
  t.Attach();
  EXPECT_EQ(t.pipe.TakeSent(), "attach\t1\tCoti\\trama\n");
  t.Attach();
  t.Hear("window\t1\nsheet\t0\nattached\t1\t1\n");
  EXPECT_EQ(t.answers, "");
  EXPECT_FALSE(t.mirror.HasWindow());
  t.Hear("attached\t2\t1\nattached\t2\t1\n");
  EXPECT_EQ(t.answers, "+");
  EXPECT_TRUE(t.mirror.HasWindow());
  t.mirror.SetNumber(2, 7, 1);  // there is no sheet
  t.mirror.Detach();
  EXPECT_EQ(t.Sent(60000), "attach\t2\tCoti\\trama\ndetach\n");
  EXPECT_FALSE(t.mirror.HasWindow());

  t.Attach();
  t.Hear("attached\t4\t0\n");
  EXPECT_EQ(t.answers, "+-");
  t.Attach();
  t.platform.avanzar(19999);
  EXPECT_EQ(t.answers, "+-");
  t.platform.avanzar(1);
  EXPECT_EQ(t.answers, "+--");
  EXPECT_FALSE(t.pipe.running());
  t.pipe.installed = false;
  t.Attach();
  t.mirror.Detach();
  t.platform.RunPosted();
  EXPECT_EQ(t.answers, "+--");
  t.Attach();
  EXPECT_EQ(t.answers, "+--");
  t.platform.RunPosted();
  EXPECT_EQ(t.answers, "+---");
  EXPECT_EQ(t.pipe.starts, 3);
  EXPECT_EQ(t.platform.running_timers(), 0U);
}

TEST(Mirror, SendsTheNewestOfWhatWaitsWhenTheLastBatchIsTakenIn) {
  Terminal t;
  t.AttachToSheet();
  EXPECT_EQ(t.Sent(0), "");
  t.mirror.SetNumber(2, 7, 20.5);
  t.mirror.SetText(2, 2, "ALDEBARAN");
  t.mirror.SetFormula(2, 5, "=g2-c2");
  t.mirror.SetNumber(2, 6, NAN);
  EXPECT_EQ(t.pipe.sent, "");
  EXPECT_EQ(t.Sent(0), "write\t1\t7\nrow\t2\t2\t'ALDEBARAN\nrow\t2\t5\t=g2-c2\t\t20.5\nend\t1\n");
  EXPECT_EQ(t.mirror.value(2, 5), Value());
  for (int i = 0; i <= 100000; ++i) t.mirror.SetNumber(2, 7, i);
  EXPECT_EQ(t.Sent(60000), "");  // the office stands still
  EXPECT_EQ(t.platform.running_timers(), 0U);
  t.Hear("row\t2\t5\t1\nrow\t2\t7\t8\ndone\t9\ndone\t1\n");
  EXPECT_EQ(t.pipe.TakeSent(), "write\t2\t7\nrow\t2\t7\t100000\nend\t2\n");
  t.Hear("row\t2\t5\t2.5\t3\t8\n");
  EXPECT_EQ(t.mirror.value(2, 5), Value(2.5));
  EXPECT_EQ(t.mirror.value(2, 7), Value(100000.0));  // on its way
  t.mirror.SetText(2, 2, "ALDEBARAN");               // the same goes out again
  t.Hear("done\t2\nrow\t2\t7\t8\nrow\t2\t2\t'x\n");
  EXPECT_EQ(t.mirror.value(2, 7), Value(8.0));
  EXPECT_EQ(t.mirror.value(2, 2), Value("ALDEBARAN"));
  EXPECT_EQ(t.Sent(499), "");
  EXPECT_EQ(t.Sent(1), "write\t3\t7\nrow\t2\t2\t'ALDEBARAN\nend\t3\n");
  t.Hear("done\t3\n");
  EXPECT_EQ(t.Sent(500), "");
  EXPECT_EQ(t.platform.running_timers(), 0U);
}

TEST(Mirror, SendsColoursThatChangedJoined) {
  Terminal t;
  t.AttachToSheet();
  const auto paint = [&] {
    for (int row = 2; row <= 4; ++row) t.mirror.SetFore(row, 1, 13, row == 4 ? 4 : 2);
    t.mirror.SetFore(3, 7, 7, 12);
    for (int col = 1; col <= 15; ++col) t.mirror.SetBack(1, col, 1);
  };
  paint();
  const std::string all =
      "fore\t2\t2\t1\t1\t13\t3\t1\t1\t6\t3\t8\t1\t6\n"
      "fore\t4\t4\t1\t1\t13\nfore\t12\t3\t7\t1\t1\nback\t1\t1\t1\t1\t15\n";
  EXPECT_EQ(t.Sent(0), "write\t1\t7\n" + all + "end\t1\n");
  t.Hear("done\t1\n");
  paint();
  EXPECT_EQ(t.Sent(1000), "");
  t.Hear("row\t4\t5\t7\n");  // somebody else has changed that row
  paint();
  EXPECT_EQ(t.Sent(1000), "write\t3\t7\nfore\t4\t4\t1\t1\t13\nend\t3\n");
  t.Hear("done\t3\nsheet\t8\n");
  paint();
  EXPECT_EQ(t.Sent(1000), "write\t4\t8\n" + all + "end\t4\n");
}

TEST(Mirror, KnowsNothingAfterItsHelperHasEnded) {
  Terminal t;
  t.AttachToSheet();
  const auto version = t.mirror.codes_version();
  EXPECT_EQ(t.mirror.value(2, 1), Value("ALD"));
  t.Hear("row\t3\t1\t'REP\nrow\t3\t2\t'x\n");
  EXPECT_EQ(t.mirror.codes_version(), version + 1);
  t.mirror.SetNumber(2, 7, 1);
  t.pipe.Die();
  EXPECT_EQ(t.mirror.value(2, 1), Value());
  EXPECT_NE(t.mirror.codes_version(), version + 1);
  EXPECT_FALSE(t.mirror.HasWindow());
  t.mirror.SetNumber(2, 7, 1);
  EXPECT_EQ(t.Sent(60000), "");
  EXPECT_EQ(t.answers, "+");
  t.Attach();
  t.pipe.Die();
  t.platform.RunPosted();
  EXPECT_EQ(t.answers, "+-");
}

TEST(Mirror, IgnoresLinesWithoutSense) {
  Terminal t;
  t.AttachToSheet();
  t.mirror.SetNumber(9, 7, 1);
  t.Sent(0);
  t.mirror.SetNumber(9, 7, 2);
  const auto version = t.mirror.codes_version();
  for (const char* line : {"",
                           "\t",
                           "nothing\t1",
                           "window",
                           "window\t",
                           "window\t0\t0",
                           "window\t-1",
                           "sheet",
                           "sheet\t-1",
                           "sheet\t0\t",
                           "done",
                           "done\t0",
                           "done\t1\t",
                           "done\t01x",
                           "attached\t1\t0",
                           "attached\t1",
                           "row\t2\t1\t'X\t'\\q",
                           "row\t2\t1\t=a1",
                           "row\t0\t1\t'X",
                           "row\t2\t16\t'X",
                           "row\t201\t1\t'X",
                           "Row\t2\t1\t'X",
                           "write\t1\t7",
                           "end\t1"}) {
    t.Hear(std::string(line) + "\n");
  }
  t.Hear("row\t2\t1\t'" + std::string(70000, 'X') + "\n");
  EXPECT_EQ(t.mirror.codes_version(), version);
  EXPECT_EQ(t.mirror.value(2, 1), Value("ALD"));
  EXPECT_TRUE(t.mirror.HasWindow());
  EXPECT_EQ(t.Sent(60000), "");
  EXPECT_EQ(t.answers, "+");
  for (const auto& [row, col] : {std::pair{0, 1}, {201, 1}, {2, 0}, {2, 16}, {-5, -5}}) {
    t.mirror.SetNumber(row, col, 1);
    t.mirror.SetFore(row, col, col, 1);
    EXPECT_EQ(t.mirror.value(row, col), Value());
  }
}

}  // namespace
