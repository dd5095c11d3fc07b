#include <string>

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>

#include "tour.h"

// Portfolios: made, filled, looked at, and valued in the strip.
namespace tour {
namespace {

constexpr int kConfigure = 40, kOperations = 41;  // tools

struct Entry {
  const char *shares, *code, *price;
  bool sells = false;
};

// Six positions, the first one bought twice and sold in part.
constexpr Entry kEntries[] = {
    {"300", "BVL", "14.05"}, {"120", "TLB", "23.40"},       {"250", "PTI", "19.95"},
    {"400", "AZL", "12.20"}, {"75", "CVN", "21.60"},        {"900", "SOL", "2.31"},
    {"200", "BVL", "14.80"}, {"150", "BVL", "15.10", true},
};
constexpr int kPositions = 6;

}  // namespace

void Tour::Fill(platform::Window& window, platform::TextBox& box, const char* text) {
  if (auto* field = qobject_cast<QLineEdit*>(WidgetOf(window, box))) field->selectAll();
  Type(window, box, QString::fromUtf8(text));
  Run(60);
}

void Tour::Choose(platform::Window& window, platform::ListBox& list, int row) {
  Run(60);
  auto* view = qobject_cast<QAbstractItemView*>(WidgetOf(window, list));
  if (view) view->setCurrentIndex(view->model()->index(row, 0));
  Run(60);
}

void Tour::Choose(platform::Window& window, platform::ComboBox& box, int row) {
  Run(60);
  auto* view = qobject_cast<QComboBox*>(WidgetOf(window, box));
  if (view && row < view->count()) {
    view->setCurrentIndex(row);
    Q_EMIT view->activated(row);
  }
  Run(60);
}

void Tour::AddPortfolio(const char* name, const char* agency, const char* account) {
  portfolios::Cartera& dialog = terminal_.Cartera;
  Fill(dialog, dialog.Text1, name);
  Fill(dialog, dialog.Text2, agency);
  Fill(dialog, dialog.Text3, account);
  Fill(dialog, dialog.Text4, "0.25");
  Fill(dialog, dialog.Text5, "3");
}

void Tour::MakePortfolios() {
  portfolios::Cartera& dialog = terminal_.Cartera;
  terminal_.MDI.ActiveBar1.Click({kConfigure, {}});
  Keep(OuterOf(dialog), QStringLiteral("carteras-vacio"));
  AddPortfolio("Jubilación", "Bolsa del Sur, S.V.", "0049-1500-05-1234567");
  Keep(OuterOf(dialog), QStringLiteral("carteras-nueva"));
  Click(dialog, dialog.Command1);
  AddPortfolio("Nietos", "Correduría Arenal", "2100-0418-45-020");
  Click(dialog, dialog.Command1);
  Keep(OuterOf(dialog), QStringLiteral("carteras"));
  Click(dialog, dialog.Command3);
}

void Tour::RecordOperations() {
  portfolios::Operar_Cartera& dialog = terminal_.Operar_Cartera;
  Click(terminal_.MDI, terminal_.MDI.Command2);
  Run(200);
  Keep(OuterOf(dialog), QStringLiteral("ordenes-vacio"));
  Choose(dialog, dialog.Combo1, 0);
  for (const Entry& entry : kEntries) {
    Click(dialog, entry.sells ? dialog.Option2 : dialog.Option1);
    Fill(dialog, dialog.Text2, entry.shares);
    Fill(dialog, dialog.Text3, entry.code);
    Fill(dialog, dialog.Text4, entry.price);
    if (entry.sells) Keep(OuterOf(dialog), QStringLiteral("ordenes-venta"));
    Click(dialog, dialog.Command1);
  }
  WaitFor("six positions", [&dialog] { return std::ssize(dialog.List2.items()) == kPositions; });
  Keep(OuterOf(dialog), QStringLiteral("ordenes"));
  KeepScreen(QStringLiteral("ordenes-pantalla"));
  dialog.Hide();
}

void Tour::Holdings() {
  shell::MDI& main = terminal_.MDI;
  Choose(main, main.Combo1, 0);
  const std::string first = main.Text1.text();
  main.Label1.Click();
  portfolios::TCartera& view = terminal_.TCartera;
  WaitFor("the holdings", [&view] { return view.visible() && view.G.rows() == 1 + kPositions; });
  WaitFor("the strip's colours", [&main, &first] { return main.Text1.text() != first; });
  if (QWidget* value = WidgetOf(main, main.Text1)) {
    Keep(value->parentWidget(), QStringLiteral("tira"));
  }
  Keep(OuterOf(main), QStringLiteral("carteras-principal"));
  Run(3000);  // rows that were new come to rest
  Keep(OuterOf(view), QStringLiteral("valores-en-carteras"));
}

void Tour::Operations() {
  portfolios::Detalle& window = terminal_.Detalle;
  terminal_.MDI.ActiveBar1.Click({kOperations, {}});
  Keep(OuterOf(window), QStringLiteral("detalle-vacio"));
  Choose(window, window.Combo1, 0);
  Choose(window, window.List2, 0);
  WaitFor("the operations", [&window] { return window.List1.items().size() == 3; });
  Keep(OuterOf(window), QStringLiteral("detalle"));
  window.Hide();
}

void Tour::Portfolios() {
  constexpr int kMenu = 2;
  if (prefix_.isEmpty()) Menu(kMenu, QStringLiteral("menu-carteras"));
  MakePortfolios();
  RecordOperations();
  Holdings();
  Operations();
  terminal_.TCartera.Hide();
}

}  // namespace tour
