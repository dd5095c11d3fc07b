#include <unistd.h>

#include <QApplication>
#include <QEvent>
#include <QWidget>

// Loaded into any Qt program in advance: writes a line and ends the process as soon as the window
// "Conecta" has been painted.
namespace {

class Watch : public QObject {
 public:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Paint || painted_ || !watched->isWidgetType()) return false;
    const auto* widget = static_cast<QWidget*>(watched);
    if (!widget->isWindow() || widget->windowTitle() != QLatin1String("Conecta")) return false;
    painted_ = true;
    // Behind this event: the rest of the window is painted with it.
    QMetaObject::invokeMethod(
        this, [] { _exit(write(STDOUT_FILENO, "\n", 1) == 1 ? 0 : 1); }, Qt::QueuedConnection);
    return false;
  }

 private:
  bool painted_ = false;
};

void Install() { QCoreApplication::instance()->installEventFilter(new Watch); }

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(Install)
