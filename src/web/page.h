#pragma once

#include <QWebEnginePage>

#include "web/guard.h"

namespace web {

/// A page that goes only where it is allowed to and opens nothing beside itself: no window, no
/// box, no file of the user's, no other program. What would be a new window comes in its place.
class Page : public QWebEnginePage {
 public:
  Page(QWebEngineProfile& profile, Allows allows);

 protected:
  bool acceptNavigationRequest(const QUrl& address, NavigationType type, bool whole) override;
  QStringList chooseFiles(FileSelectionMode, const QStringList&, const QStringList&) override {
    return {};
  }
  void javaScriptAlert(const QUrl&, const QString&) override {}
  /// Also the question whether to leave a page, which none may answer in the user's place.
  bool javaScriptConfirm(const QUrl&, const QString&) override { return true; }
  bool javaScriptPrompt(const QUrl&, const QString&, const QString&, QString*) override {
    return false;
  }
  void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString&, int,
                                const QString&) override {}

 private:
  void Limit();
  void GiveNoPassword();

  Allows allows_;
};

}  // namespace web
