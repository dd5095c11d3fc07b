// Runs the terminal against the embedded market and leaves pictures of what there is to see in the
// directory that the first argument names: of the windows as they are, on a small screen, and on a
// fine one.

#include <cstdio>
#include <functional>
#include <optional>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QProcess>
#include <QScreen>
#include <QTemporaryDir>
#include <QTimer>

#include "feed/conecta.h"
#include "qt/demo/embedded_market.h"
#include "qt/look/register.h"
#include "qt/look/theme.h"
#include "qt/ports/qt_platform.h"
#include "shell/terminal.h"

namespace {

constexpr int kPatienceMs = 30000;
constexpr QSize kSmallScreen{1024, 740};

void Run(int ms) {
  const QDeadlineTimer deadline(ms);
  while (!deadline.hasExpired()) QApplication::processEvents(QEventLoop::AllEvents, 10);
}

class Tour {
 public:
  Tour(const QString& directory, const QString& prefix);
  ~Tour() { platform_.desktop().Clear(); }

  /// The whole round.
  [[nodiscard]] bool Full();
  /// Login and board alone.
  [[nodiscard]] bool Short();

 private:
  void Login();
  void Menu();
  void Board();
  void Slide();
  void Sort();
  void LoseServer();
  void SmallScreen();

  void Keep(QWidget* widget, const QString& name);
  void KeepScreen(const QString& name);
  /// False, with a word on it, when `done` doesn't come true in time.
  bool WaitFor(const char* what, const std::function<bool()>& done);
  void Type(platform::TextBox& box, const QString& text);
  void Click(platform::Window& window, platform::Control& control);
  void HoverHeading();
  [[nodiscard]] QWidget* OuterOf(platform::Window& window);
  [[nodiscard]] QWidget* WidgetOf(platform::Window& window, platform::Control& control);

  QString directory_, prefix_;
  bool good_ = true;
  QTemporaryDir files_;
  qt::Looks looks_;
  std::optional<qt::EmbeddedMarket> market_;
  qt::QtPlatform platform_;
  shell::Terminal terminal_;
};

demo::FeedOptions BusyMorning() {
  demo::FeedOptions options;
  options.start_second = 10 * 3600;
  options.seed = 7;
  return options;
}

Tour::Tour(const QString& directory, const QString& prefix)
    : directory_(directory),
      prefix_(prefix),
      market_(std::in_place, BusyMorning()),
      platform_(looks_,
                [this](const std::string&, std::uint16_t) {
                  return qt::Endpoint{"127.0.0.1", market_ ? market_->Port() : quint16{1}};
                }),
      terminal_(platform_, base::ProgramDir(files_.path().toStdString())) {
  qt::RegisterLooks(looks_);
}

QWidget* Tour::OuterOf(platform::Window& window) {
  const auto* frame = platform_.desktop().FrameOf(window);
  return frame ? frame->outer() : nullptr;
}

QWidget* Tour::WidgetOf(platform::Window& window, platform::Control& control) {
  return platform_.desktop().FrameOf(window)->look().widget_of(control);
}

void Tour::Keep(QWidget* widget, const QString& name) {
  Run(60);
  const QString path = directory_ + QLatin1Char('/') + prefix_ + name + QStringLiteral(".png");
  const bool saved = widget && widget->grab().save(path);
  std::printf("%s %s\n", saved ? "kept" : "FAILED", qPrintable(path));
  good_ = good_ && saved;
}

void Tour::KeepScreen(const QString& name) {
  Run(60);
  const QString path = directory_ + QLatin1Char('/') + prefix_ + name + QStringLiteral(".png");
  const bool saved = QGuiApplication::primaryScreen()->grabWindow(0).save(path);
  std::printf("%s %s\n", saved ? "kept" : "FAILED", qPrintable(path));
  good_ = good_ && saved;
}

bool Tour::WaitFor(const char* what, const std::function<bool()>& done) {
  const QDeadlineTimer deadline(kPatienceMs);
  while (!done()) {
    if (deadline.hasExpired()) {
      std::printf("FAILED waiting for %s\n", what);
      return good_ = false;
    }
    Run(20);
  }
  return true;
}

void Tour::Type(platform::TextBox& box, const QString& text) {
  QWidget* field = WidgetOf(terminal_.Conecta, box);
  for (const QChar character : text) {
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
    QApplication::sendEvent(field, &press);
  }
}

void Tour::Click(platform::Window& window, platform::Control& control) {
  if (auto* button = qobject_cast<QAbstractButton*>(WidgetOf(window, control))) button->click();
}

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
  Type(terminal_.Conecta.Text1, QStringLiteral("ana77"));
  Type(terminal_.Conecta.Text2, QStringLiteral("secreto"));
  Run(400);
  Keep(OuterOf(terminal_.Conecta), QStringLiteral("conecta"));
}

void Tour::Menu() {
  auto* bar = qobject_cast<QMainWindow*>(OuterOf(terminal_.MDI))->menuBar();
  QAction* first = bar->actions().value(0);
  first->menu()->popup(bar->mapToGlobal(bar->actionGeometry(first).bottomLeft()));
  Run(300);
  KeepScreen(QStringLiteral("menu"));
  first->menu()->close();
}

void Tour::Board() {
  Click(terminal_.Conecta, terminal_.Conecta.Command2);
  WaitFor("the instruments", [this] { return terminal_.store.NumInstrumentos() > 150; });
  Run(1500);
  Keep(OuterOf(terminal_.MDI), QStringLiteral("conectado"));
  if (prefix_.isEmpty()) Menu();
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
}

bool Tour::Full() {
  Login();
  KeepScreen(QStringLiteral("inicio"));
  Board();
  Slide();
  LoseServer();
  SmallScreen();
  Sort();
  return good_;
}

bool Tour::Short() {
  Login();
  Board();
  Run(6000);
  Keep(OuterOf(terminal_.MDI), QStringLiteral("principal"));
  return good_;
}

/// The same program once more, on a screen of twice as many dots.
bool RunFine(const char* program, const QString& directory) {
  QProcess process;
  auto environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QStringLiteral("2"));
  process.setProcessEnvironment(environment);
  process.setProcessChannelMode(QProcess::ForwardedChannels);
  process.start(QString::fromLocal8Bit(program), {directory, QStringLiteral("hidpi-")});
  return process.waitForFinished(4 * kPatienceMs) && process.exitCode() == 0;
}

}  // namespace

int main(int argc, char** argv) {
  std::setvbuf(stdout, nullptr, _IOLBF, 0);
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  qt::ApplyTheme(application);
  const QString directory = application.arguments().value(1);
  if (directory.isEmpty() || !QDir().mkpath(directory)) {
    std::fprintf(stderr, "usage: cotirama-tour DIRECTORY\n");
    return 2;
  }
  if (const QString prefix = application.arguments().value(2); !prefix.isEmpty()) {
    return Tour(directory, prefix).Short() ? 0 : 1;
  }
  bool good = false;
  {
    Tour tour(directory, {});
    good = tour.Full();
  }
  return RunFine(argv[0], directory) && good ? 0 : 1;
}
