#include "tour.h"

#include <cstdio>

#include <QAbstractButton>
#include <QApplication>
#include <QDeadlineTimer>
#include <QKeyEvent>
#include <QScreen>

#include "qt/look/register.h"

namespace tour {

void Run(int ms) {
  const QDeadlineTimer deadline(ms);
  while (!deadline.hasExpired()) QApplication::processEvents(QEventLoop::AllEvents, 10);
}

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
                [this](const std::string& host, std::uint16_t port) {
                  // A chat server of the tour's own; all else is the market's.
                  if (host == "127.0.0.1") return qt::Endpoint{"127.0.0.1", port};
                  if (!market_) return qt::Endpoint{"127.0.0.1", 1};
                  const bool data = port == feed::Conecta::kDataPort;
                  return qt::Endpoint{"127.0.0.1", data ? market_->DataPort() : market_->Port()};
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

void Tour::Type(platform::Window& window, platform::TextBox& box, const QString& text) {
  QWidget* field = WidgetOf(window, box);
  for (const QChar character : text) {
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
    QApplication::sendEvent(field, &press);
  }
}

void Tour::Click(platform::Window& window, platform::Control& control) {
  if (auto* button = qobject_cast<QAbstractButton*>(WidgetOf(window, control))) button->click();
}

bool Tour::Full() {
  Login();
  KeepScreen(QStringLiteral("inicio"));
  Board();
  Slide();
  Tickets();
  Tape();
  Alarms();
  Portfolios();
  MarketViews();
  Charts();
  Colors();
  History();
  Services();
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
  Tickets();
  Portfolios();
  MarketViews();
  Charts();
  Colors();
  History();
  Services();
  return good_;
}

}  // namespace tour
