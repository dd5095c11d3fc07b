#include "qt/ports/calc_process.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <sys/prctl.h>

#include <QFileInfo>
#include <QProcess>

#include "../wait.h"
#include "qt/ports/parts.h"
#include "qt/ports/qt_platform.h"
#include "support/temp_dir.h"

namespace {

using Value = platform::Spreadsheet::Value;

constexpr const char* kDocument = R"xml(<?xml version="1.0" encoding="UTF-8"?>
<office:document xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0"
 xmlns:table="urn:oasis:names:tc:opendocument:xmlns:table:1.0"
 xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0"
 xmlns:of="urn:oasis:names:tc:opendocument:xmlns:of:1.2" office:version="1.2"
 office:mimetype="application/vnd.oasis.opendocument.spreadsheet">
<office:body><office:spreadsheet><table:table table:name="Hoja1"/>
<table:table table:name="Cotirama"><table:table-row/><table:table-row>
<table:table-cell office:value-type="string"><text:p>BVL</text:p></table:table-cell>
<table:table-cell office:value-type="string"><text:p>Antes</text:p></table:table-cell>
</table:table-row><table:table-row/><table:table-row/><table:table-row>
<table:table-cell table:formula="of:=[.O1]&amp;&quot;|&quot;&amp;[.B2]&amp;&quot;|&quot;&amp;[.M2]
&amp;&quot;|&quot;&amp;[.E2]&amp;&quot;|&quot;&amp;ISBLANK([.N2])"/>
</table:table-row></table:table></office:spreadsheet></office:body></office:document>)xml";

/// A home directory of the test's own, and an office that lives in it. The helper sees no other.
class CalcProcessTest : public testing::Test {
 protected:
  void SetUp() override {
    if (qt::FindPart("cotirama-calc").isEmpty())
      GTEST_SKIP() << "cotirama-calc isn't built: libreoffice-dev is not installed";
    was_home_ = qgetenv("HOME");
    qputenv("HOME", home.path().c_str());
  }
  void TearDown() override {
    if (!was_home_.isNull()) qputenv("HOME", was_home_);
    Kill();
  }

  [[nodiscard]] bool StartOffice() {
    home.Write("cotizaciones.fods", kDocument);
    // The first start makes the profile and ends.
    for (int i = 0; i < 2; ++i) {
      office_.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
      office_.setStandardOutputFile(QProcess::nullDevice());
      office_.setStandardErrorFile(QProcess::nullDevice());
      office_.start(kOffice,
                    {"--headless", "--norestore", "--nologo",
                     QString::fromStdString("-env:UserInstallation=file://" + home.Path("perfil")),
                     QString::fromStdString(home.Path("cotizaciones.fods"))});
      if (Soon([&] { return loaded() || office_.state() == QProcess::NotRunning; }) && loaded())
        return true;
    }
    return false;
  }
  void Kill() {
    office_.kill();
    office_.waitForFinished();
  }
  /// What the user does, and what he sees of it.
  std::string User(const QStringList& what) {
    QProcess user;
    // The office's library keeps descriptions of its types for good.
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("ASAN_OPTIONS", "detect_leaks=0");
    user.setProcessEnvironment(environment);
    user.start(qt::FindPart("office-user"), what);
    EXPECT_TRUE(Soon([&] { return user.state() == QProcess::NotRunning; }));
    EXPECT_EQ(user.exitCode(), 0);
    return user.readAllStandardOutput().toStdString();
  }
  /// As WaitFor, for an office on a machine that has much to do.
  template <typename Condition>
  static bool Soon(Condition done) {
    for (int i = 0; i < 6; ++i)
      if (support::WaitFor(done)) return true;
    return false;
  }
  bool Attach() {
    std::optional<bool> attached;
    sheet().Attach("Cotirama", [&attached](bool is) { attached = is; });
    return Soon([&] { return attached.has_value(); }) && *attached;
  }
  void Expect(int row, const Value& value) {
    EXPECT_TRUE(Soon([&] { return sheet().value(row, 1) == value; }))
        << "row " << row << ": " << testing::PrintToString(sheet().value(row, 1));
  }
  [[nodiscard]] platform::Spreadsheet& sheet() { return platform_.spreadsheet(); }

  static inline const QString kOffice =
      QFileInfo("/usr/bin/soffice").canonicalPath() + "/soffice.bin";
  support::TempDir home;

 private:
  [[nodiscard]] bool loaded() const { return home.Has(".~lock.cotizaciones.fods#"); }

  QByteArray was_home_;
  QProcess office_;
  const qt::Looks looks_;
  qt::QtPlatform platform_{looks_};
};

TEST_F(CalcProcessTest, EndsWhenToldAndComesBackWhenStartedAgain) {
  std::string answers;
  bool ended = false;
  qt::CalcProcess process;
  process.on_data = [&](std::string_view bytes) { answers += bytes; };
  process.on_end = [&] { ended = true; };
  ASSERT_TRUE(process.Start());
  process.Stop();
  EXPECT_FALSE(process.running());
  ASSERT_TRUE(process.Start());
  process.Send("nonsense\nattach\t7\tCotirama\n");
  EXPECT_TRUE(Soon([&] { return answers.ends_with("attached\t7\t0\n"); })) << answers;
  EXPECT_TRUE(process.running());
  EXPECT_FALSE(ended);
  process.Send(std::string(9 << 20, '\n'));  // too much to wait
  process.Send("attach\t8\tCotirama\n");
  EXPECT_TRUE(Soon([&] { return answers.ends_with("attached\t8\t0\n"); })) << answers;
  EXPECT_FALSE(ended);
}

TEST_F(CalcProcessTest, CarriesASheetOfARunningOffice) {
  if (!QFileInfo::exists(kOffice)) GTEST_SKIP() << "LibreOffice Calc is not installed";
  EXPECT_FALSE(Attach()) << "where no office runs";
  ASSERT_TRUE(StartOffice());
  ASSERT_TRUE(Attach());
  Expect(2, "BVL");
  EXPECT_TRUE(sheet().HasWindow());

  sheet().SetText(1, 15, "Ponderado");
  sheet().SetBack(1, 15, base::palette::kLightBlue);
  sheet().SetText(2, 2, "=1+1");
  sheet().SetText(2, 13, "007");
  sheet().SetText(2, 14, "");
  sheet().SetNumber(2, 3, 10);
  sheet().SetNumber(2, 7, 12);
  sheet().SetFormula(2, 5, "=g2-c2");
  sheet().SetFore(2, 1, 13, base::palette::kRed);
  // What the sheet makes of it is column 1's formula.
  Expect(5, "Ponderado|=1+1|007|2|1");
  EXPECT_EQ(User({"cell", "13", "2"}), "007/800000/ffffffff");
  EXPECT_EQ(User({"cell", "15", "1"}), "Ponderado/ffffffff/ff");
  User({"undo"});
  EXPECT_EQ(User({"cell", "2", "2"}), "Antes/ffffffff/ffffffff");

  User({"rename", "Otra"});
  Expect(2, Value());
  User({"rename", "Cotirama"});
  Expect(2, "BVL");
  User({"close"});
  Expect(2, Value());
  EXPECT_TRUE(sheet().HasWindow());
  Kill();
  EXPECT_TRUE(Soon([&] { return !sheet().HasWindow(); }));
  EXPECT_FALSE(Attach());
}

}  // namespace
