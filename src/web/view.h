#pragma once

#include <QWebEngineProfile>
#include <QWebEngineView>

#include "qt/look/web_plugin.h"
#include "web/guard.h"
#include "web/page.h"

namespace web {

/// A web view that remembers nothing and writes no file.
class View : public QWebEngineView {
 public:
  View(qt::WebHooks hooks, QWidget& parent);

  /// Closes whatever box a page would open above the program.
  bool event(QEvent* event) override;

 private:
  void Join();
  void AddMenu();
  void Tell() const;

  qt::WebHooks hooks_;
  Guard guard_;
  QWebEngineProfile profile_;  // without a name: kept in memory alone
  Page page_;                  // goes before its profile
};

}  // namespace web
