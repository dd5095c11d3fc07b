#include <QAbstractScrollArea>
#include <QApplication>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QTimer>

#include "tour.h"

// The board, and the session around it.
namespace tour {
namespace {

constexpr QSize kSmallScreen{1024, 740};

}  // namespace

void Tour::HoverHeading() {
  auto* grid =
      qobject_cast<QAbstractScrollArea*>(WidgetOf(terminal_.Continuo, terminal_.Continuo.G));
  for (QWidget* part : grid->findChildren<QWidget*>()) {
    if (!part->inherits("QHeaderView") || part->isHidden()) continue;
    QWidget* heading = qobject_cast<QAbstractScrollArea*>(part)->viewport();
    const QPoint at(300, 10);
    QMouseEvent move(QEvent::MouseMove, at, heading->mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QApplication::sendEvent(heading, &move);
  }
}

void Tour::Login() {
  terminal_.Start();
  Type(terminal_.Conecta, terminal_.Conecta.Text1, QStringLiteral("ana77"));
  Type(terminal_.Conecta, terminal_.Conecta.Text2, QStringLiteral("secreto"));
  Run(400);
  Keep(OuterOf(terminal_.Conecta), QStringLiteral("conecta"));
}

void Tour::Menu(int place, const QString& name) {
  auto* bar = qobject_cast<QMainWindow*>(OuterOf(terminal_.MDI))->menuBar();
  QAction* top = bar->actions().value(place);
  top->menu()->popup(bar->mapToGlobal(bar->actionGeometry(top).bottomLeft()));
  Run(300);
  KeepScreen(name);
  top->menu()->close();
}

void Tour::Board() {
  Click(terminal_.Conecta, terminal_.Conecta.Command2);
  WaitFor("the instruments", [this] { return terminal_.store.NumInstrumentos() > 150; });
  Run(1500);
  Keep(OuterOf(terminal_.MDI), QStringLiteral("conectado"));
  if (prefix_.isEmpty()) Menu(0, QStringLiteral("menu"));
  Click(terminal_.MDI, terminal_.MDI.Check2);
  Click(terminal_.MDI, terminal_.MDI.Command3);
  WaitFor("the board", [this] { return terminal_.Continuo.visible(); });
  Run(2500);
  Keep(OuterOf(terminal_.Continuo), QStringLiteral("mercado-continuo"));
}

void Tour::Slide() {
  Run(15000);  // the tape fills, and the bar goes
  Keep(OuterOf(terminal_.MDI), QStringLiteral("principal"));
  HoverHeading();
  Run(1000);
  if (auto* child = qobject_cast<QMdiSubWindow*>(OuterOf(terminal_.Continuo))) {
    child->showMaximized();
    Run(500);
    Keep(OuterOf(terminal_.MDI), QStringLiteral("maximizado"));
    child->showNormal();
  }
}

void Tour::Sort() {
  auto& grid = terminal_.Continuo.G;
  HoverHeading();
  Run(1000);
  grid.mouse_row = 0;
  grid.mouse_col = 3;
  grid.on_double_click();
  grid.mouse_row = 4;
  grid.on_click();
  Keep(OuterOf(terminal_.Continuo), QStringLiteral("ordenado"));
}

void Tour::LoseServer() {
  market_.reset();
  WaitFor("the red light",
          [this] { return terminal_.MDI.Picture2.picture() == platform::Picture::closed; });
  Run(200);
  Keep(OuterOf(terminal_.MDI), QStringLiteral("sin-servidor"));
  bool told = false;
  QTimer watch;  // a box stops everything else that this program does
  QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
    QWidget* box = QApplication::activeModalWidget();
    if (!box || told) return;
    told = true;
    KeepScreen(QStringLiteral("error"));
    market_.emplace(BusyMorning());
    box->close();
  });
  watch.start(200);
  WaitFor("the box of the error", [&told] { return told; });
  WaitFor("the session to come back", [this] { return terminal_.Conecta.conectado(); });
}

void Tour::SmallScreen() {
  OuterOf(terminal_.MDI)->resize(kSmallScreen);
  OuterOf(terminal_.Continuo)->setGeometry(10, 10, 1000, 560);
  Run(800);
  Keep(OuterOf(terminal_.MDI), QStringLiteral("1024x768"));
  terminal_.TCartera.Show();
  Run(1200);
  Keep(OuterOf(terminal_.MDI), QStringLiteral("1024x768-carteras"));
  terminal_.TCartera.Hide();
}

}  // namespace tour
