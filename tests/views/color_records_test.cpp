#include "views/color_records.h"

#include "fixture.h"

namespace {

using support::F32;
using support::I16;
using support::I32;
using support::Pad;
using views::ColorRecord;
using views::ConfigVentana;

std::string Window(int back, int neutral, std::string_view font, std::int16_t lines, float size) {
  return I32(back) + I32(1) + I32(2) + I32(neutral) + Pad(font, 30) + I16(lines) + F32(size);
}

using ColorFiles = ViewTest;

TEST_F(ColorFiles, DefaultsStandForWhatTheFileDoesNotHold) {
  const std::string two = Window(9, 1, "", 0, 8) + Window(9, 1, "", 0, 0);
  const std::pair<std::string, const char*> cases[] = {
      {"", "0/7 15/7 0/7 15/7 0/0 "},
      {std::string(10, 'x'), "0/7 15/7 0/7 15/7 0/0 "},
      {two + std::string(51, '\0'), "9/8 9/7 0/7 15/7 0/0 "},
      {two + two + Window(9, 1, "", 0, 0), "9/8 9/7 9/8 9/7 9/0 "},
  };
  for (const auto& [file, expected] : cases) {
    temp.Write("Colores.QUO", file);
    const auto config = views::LoadConfigVentana(dir);
    std::string backs;
    for (std::size_t n = 1; n <= 5; ++n) {
      backs += std::to_string(config[n].VentanaFondo) + '/' +
               std::to_string(static_cast<int>(config[n].FontSize)) + ' ';
    }
    EXPECT_EQ(backs, expected);
  }
}

TEST_F(ColorFiles, AWindowRecordIsKeptAndMendedOnlyWhereItIsApplied) {
  for (const auto& [size, applied] :
       {std::pair{0.0F, 7.0F}, {-3, 7}, {kNan, 7}, {72.5F, 7}, {1e30F, 7}, {72, 72}}) {
    const std::string bytes = Window(0x112233, 3, "Arial", -9, size);
    const auto config = ConfigVentana::Decode(bytes);
    EXPECT_EQ(config.Encode(), bytes);
    EXPECT_TRUE(config.VentanaSube == 1 && config.VentanaBaja == 2);
    platform::Grid grid;
    views::ApplyLook(config, grid);
    EXPECT_EQ(grid.font_size(), applied) << size;
    EXPECT_TRUE(grid.grid_lines() == 0 && grid.font_name() == "Arial");
    EXPECT_TRUE(grid.back_color() == 0x112233 && grid.fore_color() == 3);
  }
}

TEST_F(ColorFiles, AColourRecordKeepsTheBytesThatHaveNoMeaning) {
  const std::string bytes = I32(11) + I32(12) + I32(13) + "keep" + Pad("Courier", 30) + I16(9) +
                            I32(1) + I32(2) + I32(3) + I32(4) + I32(5) + I32(6) + "also 8 b";
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
