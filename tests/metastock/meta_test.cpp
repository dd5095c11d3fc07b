#include "metastock/meta.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <limits>

#include "support/memory_platform.h"
#include "support/meta_store.h"

namespace {

using metastock::Meta;
using metastock::Stores;
using support::Pad;
using Lines = std::vector<std::string>;

class MetaTest : public testing::Test {
 protected:
  MetaTest() {
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    dir.Write("intra/emaster",
              support::EMasterFile({{.file = 3, .symbol = "ALD", .name = "ACME", .period = 0},
                                    {.file = 700,
                                     .symbol = "B\xD1",
                                     .name = "B\tT\xC9",
                                     .inicio = 93000.5F,
                                     .fin = kInfinity,
                                     .time_frame = '\x01'}}));
    dir.Write("diario/README", "");
    support::WriteDailyStore(diario,
                             {{.symbol = "ALD", .name = "ACME", .bars = {{}}, .open = false},
                              {.file = 2,
                               .symbol = "BET",
                               .name = "B",
                               .bars = {{.date = 1000425}, {.date = 1000426}}}});
    std::filesystem::rename(dir.Path("diario/MASTER"), dir.Path("diario/Master"));
    Open();
  }

  static std::string Record(std::string_view drive, std::string_view path) {
    return Pad(drive, 3) + Pad(path, 50);
  }

  /// The program begins anew.
  void Open() {
    meta.reset();
    stores = std::make_unique<Stores>();
    meta = std::make_unique<Meta>(outside, program, *stores);
    meta->LeerRutas();
  }

  void MoveTo(const std::string& name, const std::string& file) {
    dir.Write(name + "/" + file, dir.Read(file == "MASTER" ? "diario/Master" : "intra/emaster"));
    platform::DirBox& box = file == "MASTER" ? meta->Dir2 : meta->Dir1;
    ASSERT_TRUE(box.set_path(dir.Path(name)));
  }

  const support::TempDir dir;
  const base::ProgramDir program{dir.path()};
  support::MemoryPlatform outside;
  std::unique_ptr<Stores> stores;
  std::unique_ptr<Meta> meta;
  const std::string intra = dir.Path("intra"), diario = dir.Path("diario");
  const Lines intra_lines{"D ACME            ", "  B T\u00C9            "},
      daily_lines{"D ACME            ", "D B               "};
};

TEST_F(MetaTest, WhatIsChosenAndSavedIsThereAgainAfterTheNextStart) {
  EXPECT_EQ(dir.Read("path.cfg"), "") << "made, and empty";
  EXPECT_TRUE(dir.Has("path.cfg"));
  dir.Write("path.cfg", Pad("old", 106) + "behind");
  EXPECT_TRUE(meta->Dir1.set_path(intra) && meta->Dir2.set_path(diario + "/"));
  EXPECT_EQ(meta->List1.items(), intra_lines);
  meta->Command1.Click();
  meta->Show();
  meta->C1.Click();
  EXPECT_FALSE(meta->visible());
  const std::string saved = Record("/", intra) + Record("/", diario) + "behind";
  EXPECT_EQ(dir.Read("path.cfg"), saved);

  std::filesystem::rename(dir.Path("path.cfg"), dir.Path("PATH.CFG"));
  Open();
  EXPECT_TRUE(meta->loaded());
  EXPECT_FALSE(meta->visible() || meta->F1.visible() || meta->F2.visible());
  EXPECT_EQ(meta->List1.items(), intra_lines);
  EXPECT_EQ(meta->List2.items(), daily_lines);
  EXPECT_EQ(stores->EMasterTable[1].Period, 1);
  // A narrow file is given the bar that was read last, here at the end of the first pass.
  EXPECT_EQ(stores->MasterTable[1].LastDate, 1000426);
  meta->Command2.Click();
  EXPECT_TRUE(meta->F2.visible() && !meta->F1.visible());
  meta->Show();
  meta->UserClose();
  meta->Show();
  EXPECT_EQ(meta->List2.items(), daily_lines);
  meta->C1.Click();
  EXPECT_EQ(dir.Read("PATH.CFG"), saved);
  EXPECT_FALSE(dir.Has("path.cfg"));
}

TEST_F(MetaTest, RecordsOfTheFileStandForThemselves) {
  struct Case {
    const char* what;
    std::string file, intraday, daily;  // file, directories afterwards
    std::size_t entries_intraday, entries_daily;
  };
  const std::string gone = dir.Path("nada"), above = dir.Path("Master");
  const Case cases[] = {
      {"one record and a piece", Record("/", intra) + Pad("/", 52), intra, "", 2, 0},
      {"not even one", std::string(52, '/'), "", "", 0, 0},
      {"drives of another system", Record("C:\\", intra) + Record("D:\\", "D:\\MS"), intra,
       "D:\\MS", 2, 0},
      {"gone", Record("/", gone) + Record("/", diario), gone, diario, 0, 2},
      {"any bytes", std::string(53, '\0') + std::string(53, '\xFF'), std::string(50, '\0'),
       std::string(50, '\xFF'), 0, 0},
      {"relative", Record("/", ".") + Record("/", " " + diario), ".", " " + diario, 0, 0},
  };
  for (const Case& test : cases) {
    dir.Write("path.cfg", test.file);
    Open();
    EXPECT_EQ(stores->EMasterDir.bytes(), Pad(test.intraday, 50)) << test.what;
    EXPECT_EQ(stores->MasterDir.bytes(), Pad(test.daily, 50)) << test.what;
    EXPECT_EQ(meta->List1.items().size(), test.entries_intraday) << test.what;
    EXPECT_EQ(meta->List2.items().size(), test.entries_daily) << test.what;
    EXPECT_EQ(stores->EMasterDrive.bytes(), "/  ") << test.what;
    EXPECT_EQ(stores->MasterDrive.bytes(), "/  ") << test.what;
  }
}

TEST_F(MetaTest, ADirectoryHoldsEntriesWhereItsCutPathHasTheFile) {
  ASSERT_LT(dir.path().size(), 40U);
  const std::size_t room = 50 - dir.path().size() - 1;
  const struct {
    const char* what;
    std::string name;
    std::size_t intraday, daily;
  } cases[] = {
      {"plain", "uno", 2, 2},
      {"a blank", "dos tres", 2, 0},  // the daily one is looked for in "dos"
      {"two blanks", "dos  tres", 0, 0},
      {"as long as the record", std::string(room, 'x'), 2, 2},
      {"longer", std::string(room + 1, 'y'), 0, 0},
      {"cut behind a slash", std::string(room - 1, 'z') + "/x", 0, 0},
      {"accents", "a\u00F1o", 2, 2},
  };
  for (const auto& [what, name, intraday, daily] : cases) {
    std::string expected = name;  // in the code page
    if (what == std::string("accents")) expected = "a\xF1o";
    dir.Write(std::string(room - 1, 'z') + "/EMASTER", dir.Read("intra/emaster"));
    MoveTo(name, "EMASTER");
    MoveTo(name, "MASTER");
    EXPECT_EQ(stores->EMasterDir.bytes(), Pad(dir.Path(expected), 50)) << what;
    EXPECT_EQ(meta->List1.items().size(), intraday) << what;
    EXPECT_EQ(meta->List2.items().size(), daily) << what;
  }
}

TEST_F(MetaTest, WithoutADirectoryFileOnlyTheDailyTableLosesItsEntries) {
  dir.Write("vacio/EMASTER/x", "a directory of that name");
  const std::string cases[] = {dir.Path("vacio"), "/"};
  for (const std::string& empty : cases) {
    meta->Dir1.set_path(intra);
    meta->Dir2.set_path(diario);
    EXPECT_EQ(stores->MasterCount, 2);
    EXPECT_TRUE(meta->Dir1.set_path(empty) && meta->Dir2.set_path(empty));
    EXPECT_TRUE(meta->List1.items().empty() && meta->List2.items().empty());
    EXPECT_EQ(stores->EMasterCount * 10 + stores->MasterCount, 20) << empty;
    EXPECT_EQ(stores->MasterTable[2].LastDate, 1000426);
  }
  meta->Drive1_Change();
  EXPECT_EQ(meta->Dir1.path() + meta->Drive1.drive(), "//");
}

TEST_F(MetaTest, AClickShowsTheEntryAndOfAnIntradayOneItsFile) {
  meta->Dir1.set_path(intra);
  meta->Dir2.set_path(diario);
  const auto texts = [](std::initializer_list<const platform::TextBox*> boxes) {
    std::string out;
    for (const platform::TextBox* box : boxes) out += box->text() + "|";
    return out;
  };
  const Meta& m = *meta;
  outside.boxes.while_open = [&] {
    EXPECT_EQ(texts({&m.Text1, &m.Text2, &m.Text3, &m.Text4, &m.Text5}),
              "B T\u00C9            |B\u00D1      |5|93000.5||");
    meta->UserClose();
    meta->Dir1.set_path(diario);
  };
  meta->List1.Click(1);
  meta->List2.Click(1);
  EXPECT_EQ(texts({&m.Text6, &m.Text7, &m.Text8, &m.Text9, &m.Text10}),
            "B               |BET    |2|1000425|1000426|");
  EXPECT_EQ(outside.boxes.messages, Lines{"Fichero 700"});
}

}  // namespace
