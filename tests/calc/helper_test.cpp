#include "calc/helper.h"

#include <cmath>
#include <gtest/gtest.h>

#include "support/fake_office.h"

namespace {

using Log = std::vector<std::string>;
using Value = calc::Value;

// The helper's end, with a terminal whose lines the test writes.
struct Program {
  support::FakeOffice office;
  std::string said;
  calc::Helper helper{office, [this](std::string_view bytes) { said += bytes; }};

  std::string Tell(std::string_view lines) {
    helper.Receive(lines);
    return std::exchange(said, {});
  }
  std::string Look() {
    helper.Look();
    return std::exchange(said, {});
  }
};

TEST(Helper, TellsOfTheSheetBeforeItAnswers) {
  Program p;
  p.office.cells = {{{1, 1}, "Cotirama"}, {{2, 1}, "ALD"}, {{2, 2}, 1.5}, {{200, 7}, "a\tb"},
                    {{3, 1}, ""},         {{4, 1}, NAN},   {{2, 8}, 9.0}};
  EXPECT_EQ(p.Tell("attach\t3\tCotirama\n"),
            "window\t1\nsheet\t1\nrow\t2\t1\t'ALD\t1.5\nrow\t200\t7\t'a\\tb\nattached\t3\t1\n");
  EXPECT_EQ(p.Look(), "");
  p.office.cells = {{{2, 1}, "ald"}, {{200, 7}, "a\tb"}};
  EXPECT_EQ(p.Look(), "row\t2\t1\t'ald\t\n");
  EXPECT_EQ(p.Tell("attach\t4\tOther\n"), "window\t1\nsheet\t0\nattached\t4\t1\n");
  EXPECT_EQ(p.Tell("detach\n") + p.Look(), "");
  EXPECT_FALSE(p.office.connected());
  p.office.Quit();
  EXPECT_EQ(p.Tell("attach\t5\tCotirama\n"), "window\t0\nsheet\t0\nattached\t5\t0\n");
  EXPECT_EQ(p.Look(), "");
}

TEST(Helper, WritesABatchInFewSteps) {
  Program p;
  p.Tell("attach\t1\tCotirama\n");
  EXPECT_EQ(
      p.Tell("write\t5\t1\n"
             "row\t3\t2\t1\t2\nrow\t4\t2\t3\t4\nrow\t6\t2\t5\t6\nrow\t4\t7\t'x\n"
             "row\t4\t5\t=g4-c4\nrow\t6\t2\t\t7\n"
             "fore\t2\t3\t1\t2\t13\t6\t1\t1\t13\nfore\t255\t1\t1\t1\t1\nback\t1\t1\t1\t1\t15\n"
             "end\t5\n"),
      "done\t5\n");
  EXPECT_EQ(p.office.log,
            (Log{"Begin", "Write 3,2 2x2", "Write 4,7 1x1", "Write 6,2 1x2", "Formula 4,5 1x1",
                 "Fore 2 3,1 2x13 6,1 1x13", "Fore 255 1,1 1x1", "Back 1 1,1 1x15", "End"}));
  EXPECT_EQ((p.office.cells[{4, 3}]), Value(4.0));
  EXPECT_EQ((p.office.cells[{6, 3}]), Value(7.0));
  EXPECT_EQ(p.Look(), "");  // the terminal knows what it wrote
  p.office.cells[{4, 5}] = -2.0;
  p.office.cells[{4, 7}] = 1.0;
  EXPECT_EQ(p.Look(), "row\t4\t5\t-2\nrow\t4\t7\t1\n");
}

TEST(Helper, WritesNothingMeantForAnotherSheet) {
  Program p;
  const std::string batch = "write\t1\t1\nrow\t2\t7\t5\nfore\t2\t2\t1\t1\t1\nend\t1\n";
  p.Tell("attach\t1\tCotirama\n");
  p.office.name = "Hoja1";
  EXPECT_EQ(p.Tell(batch), "sheet\t0\ndone\t1\n");
  EXPECT_EQ(p.Look(), "");
  p.office.Open("Cotirama", {{{2, 1}, "REP"}});
  EXPECT_EQ(p.Tell(batch), "done\t1\n");
  EXPECT_EQ(p.Look(), "sheet\t2\nrow\t2\t1\t'REP\n");
  EXPECT_EQ(p.Tell(batch), "done\t1\n");
  EXPECT_EQ(p.office.cells.size(), 1U);
  EXPECT_TRUE(p.office.fore.empty());
  p.office.Open("Cotirama", {});  // and the next one, between two looks
  EXPECT_EQ(p.Look(), "sheet\t0\nsheet\t3\n");
  p.office.Quit();
  EXPECT_EQ(p.Look(), "sheet\t0\nwindow\t0\n");
  EXPECT_FALSE(p.helper.attached());
  EXPECT_EQ(p.Look() + p.Tell(batch), "done\t1\n");
}

TEST(Helper, LeavesOutWhatCantBeWritten) {
  const std::string batch =
      "write\t1\t1\nrow\t2\t7\t5\nrow\t4\t7\t6\nrow\t2\t5\t=g2\nfore\t2\t2\t1\t1\t1\n"
      "back\t2\t2\t1\t1\t1\nend\t1\n";
  for (int failing = 0; failing < 5; ++failing) {  // a cell that is protected
    Program p;
    p.Tell("attach\t1\tCotirama\n");
    p.office.fails = [n = 0, failing]() mutable { return n++ == failing; };
    EXPECT_EQ(p.Tell(batch), "done\t1\n");
    EXPECT_EQ(p.office.log.size(), 7U);
    EXPECT_EQ(p.office.cells.size() + p.office.formulas.size() + p.office.fore.size() +
                  p.office.back.size(),
              4U);
    EXPECT_EQ(p.Look(), failing == 0 ? "row\t2\t7\t\n" : failing == 1 ? "row\t4\t7\t\n" : "");
  }
  Program joined;
  joined.office.locked = {{4, 8}};
  joined.Tell("attach\t1\tCotirama\n");
  joined.Tell("write\t1\t1\nrow\t3\t7\t1\t2\t3\nrow\t4\t7\t4\t5\t6\nrow\t5\t7\t7\t8\t9\nend\t1\n");
  EXPECT_EQ(joined.office.cells.size(), 8U);
  EXPECT_EQ((joined.office.cells[{4, 9}]), Value(6.0));
  for (int failing = 0; failing < 5; ++failing) {  // an office that goes away
    Program p;
    p.Tell("attach\t1\tCotirama\n");
    p.office.fails = [n = 0, failing]() mutable { return n++ >= failing; };
    EXPECT_EQ(p.Tell(batch), "sheet\t0\ndone\t1\n");
    EXPECT_EQ(p.office.log.back(), "End");
    EXPECT_EQ(p.office.log.size(), static_cast<std::size_t>(failing) + 3);
  }
}

TEST(Helper, IgnoresLinesWithoutSense) {
  Program p;
  for (const char* line : {"attach", "attach\t1", "attach\t0\tCotirama", "attach\tx\tCotirama",
                           "attach\t1\tCotirama\t", "attach\t1\tCoti\\qrama", "row\t1\t1\t5",
                           "fore\t1\t1\t1\t1\t1", "end\t1", "\t", "Attach\t1\tCotirama"}) {
    EXPECT_EQ(p.Tell(std::string(line) + "\n"), "") << line;
  }
  p.Tell("attach\t1\tCotirama\nwrite\t1\t1\nrow\t2\t2\t1\n");
  for (const char* line :
       {"row\t1\t1\t5\tx", "row\t1\t15\t5\t5", "row\t200\t1", "fore\t1", "fore\t1\t1\t1\t1",
        "fore\t1\t1\t1\t1\t16", "fore\t1\t200\t1\t2\t1", "fore\t1\t1\t1\t0\t1",
        "back\t1\t1\t1\t1\t1\t1", "back\t9999999999\t1\t1\t1\t1", "end", "end\t2", "end\t1\t",
        "write\t2", "write\t0\t1", "detach\t", "?"}) {
    EXPECT_EQ(p.Tell(std::string(line) + "\n"), "") << line;
  }
  EXPECT_EQ(p.Tell("end\t1\n"), "done\t1\n");
  EXPECT_EQ(p.office.log, (Log{"Begin", "Write 2,2 1x1", "End"}));
}

}  // namespace
