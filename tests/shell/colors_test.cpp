#include "support/grid_text.h"
#include "terminal_fixture.h"

namespace {

using support::RowText;
using views::Colores;

class ColorSettings : public TerminalTest {
 protected:
  void Load(const char* code) {
    feed().Arrive(support::Frame(
        "99,1   " +
        support::MasterRecord({.code = code, .name = "ACME", .previous = 9, .last = 10})));
  }
  [[nodiscard]] std::vector<views::GridView*> ViewsOf(int ventana) {
    if (ventana == 0) return {&terminal->Continuo, &terminal->TCartera};
    if (ventana == 1) return {&terminal->Indices, &terminal->Estadisticas};
    if (ventana == 2) return {&terminal->Futuros};
    return {&terminal->Divisas};
  }
};

TEST_F(ColorSettings, ReachTheirOpenWindowsAtOnceAndTheNextStart) {
  Start();
  LogIn();
  AgregarCartera("Largo");
  Comprar(1, "TEF", 10, 9);
  for (const char* const code : {"TEF    ", "I IBEX3", "ST 0001", "PD12345", "DV USD "}) Load(code);
  terminal->MDI.Combo1.Click(0);
  Colores& dialog = terminal->Colores;
  dialog.Show();
  std::string campos;
  for (int ventana = 0; const auto option : {&Colores::Option1, &Colores::Option2,
                                             &Colores::Option3, &Colores::Option4}) {
    (dialog.*option).set_value(true);
    campos += dialog.Check1[0].caption() + ' ' + dialog.Check1[11].caption() + '|';
    outside.boxes.color = 0xA00100 + ventana;
    dialog.Label2.Click();
    outside.boxes.color = 0xB00100 + ventana;
    dialog.Label3.Click();
    dialog.Text1.set_text("11");
    dialog.Text1.on_enter();
    for (auto& check : dialog.Check1) check.set_value(0);
    dialog.Check1[3].set_value(1);
    dialog.Command1.Click();
    for (const views::GridView* view : ViewsOf(ventana)) {
      ASSERT_EQ(view->G.rows(), 2) << view->caption();
      const bool by_text = view == &terminal->Continuo;
      EXPECT_EQ(by_text ? view->G.fore(1, 0) : view->G.back(1, 0), 0xB00100 + ventana);
    }
    ++ventana;
  }
  EXPECT_EQ(campos, "Ant Pesetas|Anterior Pesetas|Anterior Fecha|Anterior Fecha|");
  EXPECT_FALSE(terminal->Conecta.visible());
  for (const bool restarted : {false, true}) {
    if (restarted) Start();
    for (int ventana = 0; ventana < 4; ++ventana) {
      const platform::Grid& grid = ViewsOf(ventana).front()->G;
      EXPECT_TRUE(grid.back_color() == 0xA00100 + ventana && grid.font_size() == 11) << ventana;
    }
    EXPECT_EQ(RowText(terminal->Continuo.G, 0), "Instrumento|Ult|Hora");
    EXPECT_EQ(RowText(terminal->TCartera.G, 0), "Instrumento|Ultimo|% Gain|Ganancia|Hora");
    EXPECT_EQ(RowText(terminal->Indices.G, 0), "Instrumento|Ultimo|Hora");
    EXPECT_EQ(RowText(terminal->Futuros.G, 0), "Instrumento|Ultimo|Hora");
    EXPECT_EQ(terminal->Divisas.G.cols(), 9);
  }
}

}  // namespace
