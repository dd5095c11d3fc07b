#include "views/color_records.h"

#include <gtest/gtest.h>
#include <limits>

#include "support/bytes.h"
#include "support/temp_dir.h"

namespace {

using support::F32;
using support::I16;
using support::I32;
using support::Pad;
using views::ColorRecord;
using views::ConfigVentana;

std::string Window(int back, int rising, int falling, int neutral, std::string_view font,
                   std::int16_t lines, float size) {
  return I32(back) + I32(rising) + I32(falling) + I32(neutral) + Pad(font, 30) + I16(lines) +
         F32(size);
}

class ColorFiles : public testing::Test {
 protected:
  support::TempDir temp;
  base::ProgramDir dir{temp.path()};
};

TEST_F(ColorFiles, WindowRecordsStandAtTheirOffsets) {
  const std::string bytes = Window(0x112233, 1, 2, 3, "Arial", 7, 9.5F);
  const ConfigVentana config = ConfigVentana::Decode(bytes);
  EXPECT_EQ(config.VentanaFondo, 0x112233);
  EXPECT_EQ(config.VentanaBaja, 2);
  EXPECT_EQ(config.VentanaRepite, 3);
  EXPECT_EQ(config.FontName.trimmed(), "Arial");
  EXPECT_EQ(config.GridLines, 7);
  EXPECT_EQ(config.FontSize, 9.5F);
  EXPECT_EQ(config.Encode(), bytes);
}

TEST_F(ColorFiles, DefaultsStandForWhatTheFileDoesNotHold) {
  const auto backs = [&] {
    const auto config = views::LoadConfigVentana(dir);
    std::string text;
    for (std::size_t n = 1; n <= 5; ++n) {
      text += std::to_string(config[n].VentanaFondo) + '/' +
              std::to_string(static_cast<int>(config[n].FontSize)) + ' ';
    }
    return text;
  };
  EXPECT_EQ(backs(), "0/7 15/7 0/7 15/7 0/0 ");
  EXPECT_TRUE(temp.Has("Colores.QUO"));
  temp.Write("Colores.QUO", std::string(10, 'x'));
  EXPECT_EQ(backs(), "0/7 15/7 0/7 15/7 0/0 ");
  const std::string three = Window(9, 1, 1, 1, "", 0, 8) + Window(9, 1, 1, 1, "", 0, 0);
  temp.Write("Colores.QUO", three + std::string(51, '\0'));
  EXPECT_EQ(backs(), "9/8 9/7 0/7 15/7 0/0 ");
  temp.Write("Colores.QUO", three + three + Window(9, 1, 1, 1, "", 0, 0));
  EXPECT_EQ(backs(), "9/8 9/7 9/8 9/7 9/0 ");
}

TEST_F(ColorFiles, AnUnusableLookIsMendedOnlyWhereItIsApplied) {
  constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
  struct Case {
    float size, applied;
  };
  for (const Case& c : {Case{0, 7}, {-3, 7}, {kNan, 7}, {72.5F, 7}, {1e30F, 7}, {72, 72}}) {
    platform::Grid grid;
    const auto config =
        ConfigVentana::Decode(Window(4, 1, 1, 2, std::string(30, '\0'), -9, c.size));
    views::ApplyLook(config, grid);
    EXPECT_EQ(grid.font_size(), c.applied) << c.size;
    EXPECT_EQ(grid.grid_lines(), 0);
    EXPECT_EQ(grid.font_name(), "");
    EXPECT_EQ(grid.back_color(), 4);
    EXPECT_EQ(grid.fore_color(), 2);
    EXPECT_EQ(config.Encode().substr(48), F32(c.size));
  }
}

TEST_F(ColorFiles, AColourRecordKeepsTheBytesThatHaveNoMeaning) {
  const std::string bytes = I32(11) + I32(12) + I32(13) + "keep" + Pad("Courier", 30) + I16(9) +
                            I32(1) + I32(2) + I32(3) + I32(4) + I32(5) + I32(6) + "also 8 b";
  ASSERT_EQ(bytes.size(), ColorRecord::kSize);
  ColorRecord record = ColorRecord::Decode(bytes);
  EXPECT_EQ(record.ColorBajaTexto, 12);
  EXPECT_EQ(record.ColorRepiteFondo, 3);
  EXPECT_EQ(record.ColorMovRepite, 6);
  EXPECT_EQ(record.Encode(), bytes);
  record.ColorNormalTexto = 99;
  EXPECT_EQ(record.Encode(), bytes.substr(0, 8) + I32(99) + bytes.substr(12));
}

TEST_F(ColorFiles, BlankOrMissingColourRecordsShowDefaults) {
  const auto flash = [&](int number) {
    const ColorRecord r = views::ReadColorRecord(dir, number);
    return std::vector<int>{r.ColorSubeTexto, r.ColorBajaTexto, r.ColorNormalTexto,
                            r.ColorSubeFondo, r.ColorBajaFondo, r.ColorRepiteFondo,
                            r.ColorMovSube,   r.ColorMovBaja,   r.ColorMovRepite};
  };
  const std::vector<int> first{15, 15, 0, 2, 4, 0, 15, 15, 15};
  const std::vector<int> third{2, 4, 0, 15, 15, 15, 0, 0, 0};
  EXPECT_EQ(flash(1), first);
  EXPECT_EQ(temp.Read("COLORES.SET"), "");

  (void)views::ReadColorRecord(dir, 1, true);
  const std::string written = temp.Read("COLORES.SET");
  ASSERT_EQ(written.size(), ColorRecord::kSize);
  EXPECT_EQ(written.substr(48, 24), I32(2) + I32(4) + I32(0) + I32(15) + I32(15) + I32(15));
  EXPECT_EQ(flash(3), third);

  // Only record 2 was ever chosen: 1 and a cut 3 are blank.
  std::string chosen(80, '\0');
  chosen.replace(4, 4, I32(5));
  temp.Write("COLORES.SET", std::string(80, '\0') + chosen + std::string(79, 'x'));
  (void)views::ReadColorRecord(dir, 1, true);
  EXPECT_EQ(flash(1), first);
  EXPECT_EQ(flash(2), (std::vector<int>{0, 5, 0, 0, 0, 0, 0, 0, 0}));
  EXPECT_EQ(flash(3), third);
}

}  // namespace
