#include "views/colores.h"

#include <filesystem>

#include "fixture.h"

namespace {

using support::F32;
using support::I16;
using support::I32;
using support::Pad;
using views::Colores;

std::string Letters(int size, char first = 'A') {
  std::string out;
  for (int i = 0; i < size; ++i) out += static_cast<char>(first + i % 26);
  return out;
}

class ColoresTest : public ViewTest {
 protected:
  ColoresTest() {
    dialog.steps.Grids = [this](int) { return std::vector<platform::Grid*>{&window}; };
    dialog.steps.OcultarConecta = [this] { log += "conecta "; };
    dialog.steps.ColoresOn = [this](int n) { log += "colores" + std::to_string(n) + ' '; };
  }
  ~ColoresTest() override { dialog.Unload(); }

  void Open(const std::string& quo, const std::string& set) {
    temp.Write("Colores.QUO", quo);
    temp.Write("COLORES.SET", set);
    config = views::LoadConfigVentana(dir);
    dialog.Unload();
    dialog.Show();
  }
  void Type(const char* size) {
    dialog.Text1.set_text(size);
    dialog.Text1.on_enter();
  }

  views::ConfigVentanas config;
  Colores dialog{outside, dir, config};
  platform::Grid window;
  std::string log;
};

TEST_F(ColoresTest, EachLabelGoesToItsFieldsOfTheChosenWindowAndAllElseIsKept) {
  struct {
    platform::Label Colores::*label;
    int in_quo, in_set;  // offsets
  } const cases[] = {
      {&Colores::Label2, 0, -1},   {&Colores::Label3, 4, 0},    {&Colores::Label4, 12, 8},
      {&Colores::Label5, 8, 4},    {&Colores::Label24, -1, 48}, {&Colores::Label25, -1, 52},
      {&Colores::Label26, -1, 56}, {&Colores::Label27, -1, 60}, {&Colores::Label29, -1, 64},
      {&Colores::Label30, -1, 68},
  };
  Open(Letters(264), Letters(484, 'a'));
  dialog.Option3.set_value(true);
  dialog.Command1.Click();
  std::string quo = Letters(264).replace(104 + 46, 6, I16(11) + F32(7));
  std::string set = Letters(484, 'a').replace(160 + 46, 2, I16(7));
  int color = 0x0A0B0C;
  for (const auto& [member, in_quo, in_set] : cases) {
    platform::Label& label = dialog.*member;
    const auto shown = [&] { return in_quo > 0 ? label.fore() : label.back(); };
    const int before = shown();
    outside.boxes.color.reset();
    label.Click();
    dialog.Command1.Click();
    EXPECT_EQ(outside.boxes.colors.back(), before) << label.caption();
    EXPECT_EQ(temp.Read("Colores.QUO") + temp.Read("COLORES.SET"), quo + set) << label.caption();

    outside.boxes.color = ++color;
    label.Click();
    EXPECT_EQ(shown(), color) << label.caption();
    EXPECT_EQ(dialog.Label4.back(), dialog.Label2.back());
    if (in_quo >= 0) quo.replace(static_cast<std::size_t>(104 + in_quo), 4, I32(color));
    EXPECT_EQ(temp.Read("Colores.QUO") + temp.Read("COLORES.SET"), quo + set) << label.caption();
    dialog.Command1.Click();
    if (in_set >= 0) set.replace(static_cast<std::size_t>(160 + in_set), 4, I32(color));
    EXPECT_EQ(temp.Read("Colores.QUO") + temp.Read("COLORES.SET"), quo + set) << label.caption();
  }
}

TEST_F(ColoresTest, ThePreviewIsPaintedAsTheChosenWindowPaints) {
  Open(Letters(260), Letters(480, 'a'));
  const auto marks = [this](const support::ColorSigns& signs) {
    std::string out;
    for (int row = 1; row <= 3; ++row) out += support::Marks(dialog.G, row, signs) + ' ';
    return out;
  };
  const auto& [fondo, sube, baja, repite, name, lines, size] = config[1];
  auto c = views::ReadColorRecord(dir, 1);
  EXPECT_EQ(marks({{{sube, fondo}, '+'},
                   {{repite, fondo}, '='},
                   {{baja, fondo}, '-'},
                   {{c.ColorMovSube, c.ColorSubeFondo}, 'R'},
                   {{c.ColorMovRepite, c.ColorRepiteFondo}, 'E'},
                   {{c.ColorMovBaja, c.ColorBajaFondo}, 'F'}}),
            "+++R+ ===E= ---F- ");
  dialog.Option2.set_value(true);
  c = views::ReadColorRecord(dir, 2);
  EXPECT_EQ(marks({{{c.ColorNormalTexto, config[2].VentanaSube}, '+'},
                   {{config[2].VentanaRepite, config[2].VentanaFondo}, '='},
                   {{c.ColorNormalTexto, config[2].VentanaBaja}, '-'},
                   {{c.ColorSubeTexto, c.ColorSubeFondo}, 'R'},
                   {{c.ColorBajaTexto, c.ColorBajaFondo}, 'F'}}),
            "+==R= +==== -==F= ");
}

TEST_F(ColoresTest, SizesAndLinesStayWithinTheirBounds) {
  Open("", "");
  for (const auto& [typed, size] : {std::pair{"12", 12.0F},
                                    {"8.5", 8.5F},
                                    {"9,5", 9},
                                    {" 1 1p", 11},
                                    {"0", 7},
                                    {"-4", 7},
                                    {"1e9", 7},
                                    {"nan", 7},
                                    {"", 7}}) {
    dialog.Show();
    Type(typed);
    EXPECT_EQ(dialog.G.font_size(), size) << typed;
  }
  for (int n = 0; n < 15; ++n) dialog.Command2.Click();
  EXPECT_EQ(dialog.G.grid_lines(), 11);
  for (int n = 0; n < 15; ++n) dialog.Command3.Click();
  EXPECT_EQ(dialog.G.grid_lines(), 0);
}

TEST_F(ColoresTest, AppliesFontLinesAndSizeOfThePreview) {
  outside.desktop().fonts = {"Ñandú €", "一二", std::string(40, 'x')};
  const std::string names[] = {
      "\xD1"
      "and\xFA \x80",
      "??", std::string(30, 'x')};
  for (int chosen = 0; chosen < 3; ++chosen) {
    Open("", Letters(100));
    dialog.Option4.set_value(true);
    dialog.List1.Click(chosen);
    dialog.Command2.Click();
    Type("10.5");
    dialog.Command1.Click();
    const std::string name = Pad(names[chosen], 30);
    EXPECT_EQ(temp.Read("Colores.QUO").substr(156, 52),
              I32(15) + I32(2) + I32(4) + I32(0) + name + I16(2) + F32(10.5F));
    EXPECT_EQ(temp.Read("COLORES.SET"), Letters(100) + std::string(140, '\0') + I32(2) + I32(4) +
                                            I32(15) + I32(0) + name + I16(10) + I32(15) + I32(15) +
                                            I32(15) + std::string(20, '\0'));
    EXPECT_TRUE(window.font_size() == 10.5F && window.grid_lines() == 2);
    EXPECT_TRUE(window.font_name() == dialog.G.font_name() && window.back_color() == 15);
  }
}

TEST_F(ColoresTest, FlagsComeFromTheFileOfTheChosenWindowAndGoBackThere) {
  const std::string none(12, '0');
  for (const auto& [file, written] : {std::pair<std::string, const char*>{"", "111111111110"},
                                      {"1x 0", "100011111110"},
                                      {none + "more", "000000000000more"}}) {
    temp.Write("FU.CAM", file);
    temp.Write("IN.CAM", none);
    Open("", "");
    dialog.Option2.set_value(true);
    dialog.Option3.set_value(true);
    dialog.Check1[11].set_value(0);
    dialog.Command1.Click();
    EXPECT_EQ(temp.Read("FU.CAM"), written);
  }
}

TEST_F(ColoresTest, HostileRecordsAndADiskThatRefusesAreSurvived) {
  for (const char fill : {'\0', '\x7F', '\x80', '\xFF'}) {
    Open(std::string(260, fill), std::string(480, fill));
    EXPECT_TRUE(dialog.Text1.text() == "7" && dialog.Label24.back() == 2);  // blank: the default
  }
  for (const char* const file : {"Colores.QUO", "COLORES.SET", "MC.CAM"}) {
    std::filesystem::remove(temp.Path(file));
    std::filesystem::create_directory(temp.Path(file));
  }
  outside.boxes.color = 0x123456;
  dialog.Label2.Click();
  dialog.Command1.Click();
  EXPECT_EQ(log, "conecta colores1 ");
  EXPECT_TRUE(config[1].VentanaFondo == 0x123456 && window.back_color() == 0x123456);
}

}  // namespace
