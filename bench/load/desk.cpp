#include "desk.h"

#include <QAbstractScrollArea>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEvent>
#include <QEventLoop>
#include <QTimer>

#include "qt/look/register.h"

namespace load {

bool RunUntil(double seconds, const std::function<bool()>& done) {
  const QDeadlineTimer deadline(static_cast<qint64>(seconds * 1000));
  QEventLoop loop;
  QTimer ask;
  bool held = done();
  QObject::connect(&ask, &QTimer::timeout, &loop, [&] {
    held = done();
    if (held || deadline.hasExpired()) loop.quit();
  });
  ask.start(20);
  if (!held) loop.exec();
  return held;
}

void RunFor(double seconds) {
  QEventLoop loop;
  QTimer::singleShot(static_cast<int>(seconds * 1000), &loop, &QEventLoop::quit);
  loop.exec();
}

Desk::Desk(quint16 port)
    : platform_(looks_,
                [port](const std::string&, std::uint16_t) {
                  return qt::Endpoint{QStringLiteral("127.0.0.1"), port};
                }),
      terminal(platform_, base::ProgramDir(directory_.path())) {
  qt::RegisterLooks(looks_);
  terminal.Start();
}

Desk::~Desk() { platform_.desktop().Clear(); }

void Desk::ShowBoard() {
  constexpr QSize kUsual(1280, 800);
  platform_.desktop().FrameOf(terminal.MDI)->outer()->resize(kUsual);
  terminal.Continuo.Show();
  terminal.Continuo.set_state(platform::Window::State::maximized);
  Watch(terminal.Continuo, terminal.Continuo.G);
}

void Desk::Watch(const platform::Window& window, platform::Control& control) {
  QWidget* widget = WidgetOf(window, control);
  if (auto* area = qobject_cast<QAbstractScrollArea*>(widget)) widget = area->viewport();
  if (widget != nullptr) widget->installEventFilter(this);
}

void Desk::LogIn() {
  terminal.Conecta.Text1.set_text("quien");
  terminal.Conecta.Text2.set_text("clave");
  terminal.Conecta.Command2.Click();
}

bool Desk::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Paint) ++paints_;
  return QObject::eventFilter(watched, event);
}

}  // namespace load
