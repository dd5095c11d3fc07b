#include "web/view.h"

#include <utility>

#include <QAction>
#include <QChildEvent>
#include <QDialog>
#include <QPointer>

namespace web {

View::View(qt::WebHooks hooks, QWidget& parent)
    : QWebEngineView(&parent),
      hooks_(std::move(hooks)),
      guard_(hooks_.allows),
      page_(profile_, hooks_.allows) {
  profile_.setHttpCacheType(QWebEngineProfile::MemoryHttpCache);
  profile_.setHttpAcceptLanguage(QStringLiteral("es-ES,es"));
  profile_.setSpellCheckEnabled(false);
  profile_.setUrlRequestInterceptor(&guard_);
  setPage(&page_);
  Join();
  AddMenu();
}

void View::Join() {
  const auto tell = [this] { Tell(); };
  connect(&page_, &QWebEnginePage::loadStarted, this, tell);
  connect(&page_, &QWebEnginePage::loadFinished, this, tell);
  connect(&page_, &QWebEnginePage::titleChanged, this, tell);
  connect(&page_, &QWebEnginePage::urlChanged, this, tell);
  connect(&page_, &QWebEnginePage::renderProcessTerminated, this,
          [this](QWebEnginePage::RenderProcessTerminationStatus status) {
            if (status != QWebEnginePage::NormalTerminationStatus) hooks_.failed();
          });
}

bool View::event(QEvent* event) {
  if (event->type() == QEvent::ChildPolished) {
    QPointer<QDialog> box = qobject_cast<QDialog*>(static_cast<QChildEvent*>(event)->child());
    if (box) {
      QMetaObject::invokeMethod(
          this,
          [box] {
            if (box) box->reject();
          },
          Qt::QueuedConnection);
    }
  }
  return QWebEngineView::event(event);
}

void View::AddMenu() {
  const std::pair<QWebEnginePage::WebAction, const char*> entries[] = {
      {QWebEnginePage::Back, "Atrás"},
      {QWebEnginePage::Forward, "Adelante"},
      {QWebEnginePage::Reload, "Actualizar"},
      {QWebEnginePage::Copy, "Copiar"}};
  for (const auto& [entry, caption] : entries) {
    QAction* action = page_.action(entry);
    action->setText(QString::fromUtf8(caption));
    addAction(action);
  }
  setContextMenuPolicy(Qt::ActionsContextMenu);
}

void View::Tell() const { hooks_.tell(page_.isLoading(), page_.title(), page_.url()); }

}  // namespace web
