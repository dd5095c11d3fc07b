#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QTimer>

#include "tour.h"

// The market views beside the board, the charts, and the dialog of their colours.
namespace tour {

void Tour::KeepShown(platform::Window& window, const QString& name) {
  window.Show();
  Run(1500);
  Keep(OuterOf(window), name);
  window.Hide();
}

void Tour::AnswerBox(const QString& text, const QString& name, const std::function<void()>& ask) {
  QTimer watch;  // a box stops everything else that this program does
  QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
    auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!box) return;
    watch.stop();
    if (auto* field = box->findChild<QLineEdit*>()) field->setText(text);
    Keep(box, name);
    box->accept();
  });
  watch.start(300);
  ask();
}

void Tour::AskForOptions(const QString& code) {
  constexpr int kOptions = 66;
  AnswerBox(code, QStringLiteral("pregunta-opciones"), [this] {
    terminal_.MDI.ActiveBar1.Click({kOptions, {}});
  });
}

void Tour::MarketViews() {
  KeepShown(terminal_.Indices, QStringLiteral("indices"));
  KeepShown(terminal_.Estadisticas, QStringLiteral("estadisticas"));
  KeepShown(terminal_.Futuros, QStringLiteral("futuros"));
  KeepShown(terminal_.Divisas, QStringLiteral("divisas"));
  AskForOptions(QStringLiteral("BVL"));
  WaitFor("the options", [this] { return terminal_.Opciones.G.rows() > 10; });
  KeepShown(terminal_.Opciones, QStringLiteral("opciones"));
  KeepShown(terminal_.Hot, QStringLiteral("hot"));
}

void Tour::Charts() {
  charts::GraficosAbiertos& charts = terminal_.Graficos;
  for (const char* code : {"BVL", "I IB", "PDIBXC"}) charts.Abrir(terminal_.store.Buscar(code));
  charts::Graficos& first = charts.at(0);
  for (const int periods : {10, 40}) first.Gr1.AddMedia(periods);
  WaitFor("the charts to grow", [&] { return first.Gr1.Count() > 30; });
  Run(600);
  Keep(OuterOf(first), QStringLiteral("grafico-medias"));
  Keep(OuterOf(charts.at(1)), QStringLiteral("grafico-indice"));
  Keep(OuterOf(charts.at(2)), QStringLiteral("grafico-futuro"));
  Keep(OuterOf(terminal_.MDI), QStringLiteral("graficos"));
  first.Gr1_Command(charts::Chart::kMedia);
  Run(500);
  Keep(OuterOf(charts.Medias), QStringLiteral("medias"));
  charts.Medias.Command2_Click();
  while (charts.size() > 0) charts.at(0).Unload();
}

void Tour::Colors() {
  views::Colores& dialog = terminal_.Colores;
  KeepShown(dialog, QStringLiteral("colores"));
  dialog.Option2.set_value(true);
  KeepShown(dialog, QStringLiteral("colores-indices"));
}

}  // namespace tour
