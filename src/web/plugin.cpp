#include "web/plugin.h"

#include <QOpenGLContext>
#include <QQuickWindow>
#include <QWebEngineProfile>

#include "web/view.h"

// Qt's, without a header.
QT_BEGIN_NAMESPACE
Q_GUI_EXPORT void qt_gl_set_global_share_context(QOpenGLContext* context);
QT_END_NAMESPACE

namespace web {

Plugin::Plugin() {
  // A view that is drawn by a graphics card would turn the whole main window over to that.
  QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
  // One that was never made: asked for its format until the very end, and not used otherwise.
  qt_gl_set_global_share_context(new QOpenGLContext);
  const QWebEngineProfile starts_the_engine;
}

qt::WebScreen Plugin::Make(const qt::WebHooks& hooks, QWidget& parent) {
  auto* view = new View(hooks, parent);
  return {.widget = view,
          .navigate = [view](const QUrl& address) { view->load(address); },
          .back = [view] { view->back(); },
          .forward = [view] { view->forward(); },
          .refresh = [view] { view->reload(); },
          .stop = [view] { view->stop(); }};
}

}  // namespace web
