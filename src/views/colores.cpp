#include "views/colores.h"

#include <algorithm>
#include <string>

#include "base/bytes.h"
#include "base/masks.h"
#include "base/record_file.h"
#include "base/val.h"

namespace views {
namespace {

constexpr std::array<std::string_view, 5> kFlagFiles{"", "MC.CAM", "IN.CAM", "FU.CAM", "DV.CAM"};
constexpr int kShares = 1, kFutures = 3, kCurrencies = 4;

constexpr std::array<std::array<std::string_view, 5>, 4> kPreview{{
    {"Instrumento", "Anterior", "%D", "Ultimo", "Maximo"},
    {"Cotirama Server", "96.53", "+2.36", "98.68", "99.12"},
    {"Reuters", "85.34", "0.00", "85.34", "86.76"},
    {"Competidor 1", "64.26", "-0.45", "64.12", "65.67"},
}};
constexpr int kRising = 1, kUnchanged = 2, kFalling = 3;  // its rows
constexpr int kLit = 3;                                   // column whose cells have just changed
constexpr int kNameWidth = 1800, kPriceWidth = 960;

// Black or white, whichever can be read on it.
base::Color TextOn(base::Color ground) {
  const std::uint32_t rgb = base::RgbOf(ground);
  const std::uint32_t brightness =
      299 * (rgb >> 16) + 587 * (rgb >> 8 & 0xFFu) + 114 * (rgb & 0xFFu);
  return brightness > 127'500 ? base::palette::kBlack : base::palette::kBrightWhite;
}

}  // namespace

const std::array<Colores::Muestra, 10> Colores::kMuestras{{
    {&Colores::Label2, "Fondo", &ConfigVentana::VentanaFondo, nullptr},
    {&Colores::Label3, "Suben", &ConfigVentana::VentanaSube, &ColorRecord::ColorSubeTexto},
    {&Colores::Label4, "Repiten", &ConfigVentana::VentanaRepite, &ColorRecord::ColorNormalTexto},
    {&Colores::Label5, "Bajan", &ConfigVentana::VentanaBaja, &ColorRecord::ColorBajaTexto},
    {&Colores::Label24, "F Suben", nullptr, &ColorRecord::ColorSubeFondo},
    {&Colores::Label25, "F Bajan", nullptr, &ColorRecord::ColorBajaFondo},
    {&Colores::Label26, "F Repiten", nullptr, &ColorRecord::ColorRepiteFondo},
    {&Colores::Label27, "Suben", nullptr, &ColorRecord::ColorMovSube},
    {&Colores::Label29, "Bajan", nullptr, &ColorRecord::ColorMovBaja},
    {&Colores::Label30, "Repiten", nullptr, &ColorRecord::ColorMovRepite},
}};

Colores::Colores(platform::Platform& platform, const base::ProgramDir& dir, ConfigVentanas& config)
    : Window(platform), dir_(dir), config_(config) {
  Design();
  Wire();
}

void Colores::Design() {
  set_caption("Definir Colores y Fuentes");
  Option1.set_caption("Mercado Continuo");
  Option2.set_caption("Indices");
  Option3.set_caption("Futuros");
  Option4.set_caption("Divisas");
  for (const Muestra& muestra : kMuestras) (this->*muestra.label).set_caption(muestra.caption);
  List1.set_tool_tip("Tipo de letra");
  Text1.set_label(kLetra);
  Text1.set_tool_tip("Pulse Intro para ver el tamaño");
  Command1.set_caption("Aplicar Fuente");
  Command1.set_tool_tip("Aplica y guarda lo elegido para la ventana");
  Command2.set_caption("+");
  Command2.set_tool_tip("Estilo siguiente");
  Command3.set_caption("-");
  Command3.set_tool_tip("Estilo anterior");
}

void Colores::Wire() {
  for (platform::OptionButton* option : {&Option1, &Option2, &Option3, &Option4}) {
    option->on_click = [this] { Option_Click(); };
  }
  for (const Muestra& muestra : kMuestras) {
    platform::Label& label = this->*muestra.label;
    label.on_click = [this, &label] { Label_Click(label); };
  }
  List1.on_click = [this] { List1_Click(); };
  Text1.on_enter = [this] { Text1_Enter(); };
  Command1.on_click = [this] { Command1_Click(); };
  Command2.on_click = [this] { Command2_Click(); };
  Command3.on_click = [this] { Command3_Click(); };
}

void Colores::OnLoad() {
  G.set_rows(static_cast<int>(kPreview.size()));
  G.set_cols(static_cast<int>(kPreview[0].size()));
  for (int c = 0; c < G.cols(); ++c) {
    for (int r = 0; r < G.rows(); ++r) {
      G.set_text(r, c, kPreview[static_cast<std::size_t>(r)][static_cast<std::size_t>(c)]);
    }
    G.set_width(c, c == 0 ? kNameWidth : kPriceWidth);
    G.set_align(c, c == 0 ? platform::Align::left : platform::Align::right);
  }
  List1.Clear();
  for (const std::string& font : platform().desktop().Fonts()) List1.AddItem(font);
  for (int n = kShares; n <= kCurrencies; ++n) {
    registros_[static_cast<std::size_t>(n)] = ReadColorRecord(dir_, n);
  }
  Option1.set_value(true);
  Option_Click();  // it may have been the chosen one already
}

void Colores::OnActivate() { ShowSettings(); }

int Colores::ventana() const {
  return Option2.value() ? 2 : Option3.value() ? kFutures : Option4.value() ? kCurrencies : kShares;
}

void Colores::Option_Click() {
  ReadFlags();
  ShowCampos();
  ShowSettings();
}

void Colores::ReadFlags() {
  const base::RecordFile records(dir_.Path(kFlagFiles[static_cast<std::size_t>(ventana())]), 1);
  std::string flag;
  for (std::size_t k = 0; k < Check1.size(); ++k) {
    const bool known = records.Read(static_cast<std::int64_t>(k) + 1, flag);
    Check1[k].set_value(!known || flag == "1" ? 1 : 0);
  }
}

void Colores::WriteFlags() const {
  std::string flags;
  for (const platform::CheckBox& check : Check1) flags += check.value() != 0 ? '1' : '0';
  const std::string_view file = kFlagFiles[static_cast<std::size_t>(ventana())];
  const auto put = [&](std::string& content) { base::PutBytes(content, 0, flags); };
  (void)base::EditFile(dir_.Path(file), put);  // the old ones stay
}

void Colores::ShowCampos() {
  if (!steps.Campos) return;
  // All columns of the currencies are always there: their boxes bear the headings of the futures.
  const auto campos = steps.Campos(ventana() == kCurrencies ? kFutures : ventana());
  for (std::size_t k = 0; k < std::min(campos.size(), Check1.size()); ++k) {
    Check1[k].set_caption(campos[k]);
  }
}

void Colores::ShowSettings() {
  ApplyLook(config(), G);
  Text1.set_text(base::NumberText(G.font_size()));
  const auto& fonts = List1.items();
  const auto font = std::ranges::find(fonts, G.font_name());
  List1.set_list_index(font == fonts.end() ? -1 : static_cast<int>(font - fonts.begin()));
  ShowColors();
}

base::Color Colores::ColorOf(const Muestra& muestra) {
  return muestra.ventana ? config().*muestra.ventana : registro().*muestra.registro;
}

void Colores::ShowColors() {
  const ConfigVentana& look = config();
  for (const Muestra& muestra : kMuestras) {
    platform::Label& label = this->*muestra.label;
    const base::Color color = ColorOf(muestra);
    label.set_back(muestra.ventana ? look.VentanaFondo : color);
    label.set_fore(muestra.ventana ? color : TextOn(color));
  }
  Label2.set_fore(look.VentanaRepite);
  PaintPreview();
}

void Colores::PaintPreview() {
  const ConfigVentana& look = config();
  const ColorRecord& flash = registro();
  G.set_back_color(look.VentanaFondo);
  G.set_fore_color(look.VentanaRepite);
  const auto rest = [this](int row, base::Color text) {
    G.set_row_colors(row, 0, text, platform::Grid::kUnset);
  };
  if (ventana() == kShares) {
    rest(kRising, look.VentanaSube);
    rest(kUnchanged, look.VentanaRepite);
    rest(kFalling, look.VentanaBaja);
    G.set_colors(kRising, kLit, flash.ColorMovSube, flash.ColorSubeFondo);
    G.set_colors(kUnchanged, kLit, flash.ColorMovRepite, flash.ColorRepiteFondo);
    G.set_colors(kFalling, kLit, flash.ColorMovBaja, flash.ColorBajaFondo);
    return;
  }
  for (const int row : {kRising, kUnchanged, kFalling}) {
    rest(row, platform::Grid::kUnset);
    G.set_colors(row, 0, flash.ColorNormalTexto,
                 row == kFalling ? look.VentanaBaja : look.VentanaSube);
  }
  G.set_colors(kRising, kLit, flash.ColorSubeTexto, flash.ColorSubeFondo);
  G.set_colors(kFalling, kLit, flash.ColorBajaTexto, flash.ColorBajaFondo);
}

void Colores::Label_Click(platform::Label& label) {
  const auto is_its = [&](const Muestra& muestra) { return &(this->*muestra.label) == &label; };
  const auto muestra = std::ranges::find_if(kMuestras, is_its);
  if (muestra == kMuestras.end()) return;
  const auto picked = platform().dialogs().Color(ColorOf(*muestra));
  if (!picked) return;
  if (muestra->ventana) config().*muestra->ventana = *picked;
  if (muestra->registro) registro().*muestra->registro = *picked;
  ShowColors();
  WriteConfigVentana(dir_, config_);
}

void Colores::List1_Click() {
  const int chosen = List1.list_index();
  if (chosen >= 0) G.set_font_name(List1.items()[static_cast<std::size_t>(chosen)]);
}

void Colores::Text1_Enter() {
  G.set_font_size(base::ValFloat(Text1.text()).value_or(0));
  Text1.set_text(base::NumberText(G.font_size()));
}

void Colores::Command2_Click() { G.set_grid_lines(G.grid_lines() + 1); }

void Colores::Command3_Click() { G.set_grid_lines(G.grid_lines() - 1); }

void Colores::TakeLook() {
  ConfigVentana& look = config();
  ColorRecord& record = registro();
  look.FontSize = G.font_size();
  look.GridLines = static_cast<std::int16_t>(G.grid_lines());
  look.FontName = base::FixedText<30>::FromUtf8(G.font_name());
  record.SetFontSize = base::ToInteger<std::int16_t>(look.FontSize).value_or(record.SetFontSize);
  if (ventana() == kCurrencies) record.SetFontName = look.FontName;
  if (!steps.Grids) return;
  for (platform::Grid* grid : steps.Grids(ventana())) ApplyLook(look, *grid);
}

void Colores::Command1_Click() {
  TakeLook();
  WriteConfigVentana(dir_, config_);
  WriteFlags();
  WriteColorRecord(dir_, ventana(), registro());
  ReadConfigVentana(dir_, config_);
  registro() = ReadColorRecord(dir_, ventana());
  ShowSettings();  // as the views will read them
  if (steps.OcultarConecta) steps.OcultarConecta();
  if (steps.ColoresOn) steps.ColoresOn(ventana());
}

}  // namespace views
