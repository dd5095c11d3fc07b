#include "web/page.h"

#include <utility>

#include <QAuthenticator>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineSettings>

namespace web {

Page::Page(QWebEngineProfile& profile, Allows allows)
    : QWebEnginePage(&profile), allows_(std::move(allows)) {
  Limit();
  GiveNoPassword();
  connect(this, &QWebEnginePage::newWindowRequested, this,
          [this](const QWebEngineNewWindowRequest& request) {
            if (request.isUserInitiated() && allows_(request.requestedUrl())) {
              load(request.requestedUrl());
            }
          });
  connect(this, &QWebEnginePage::featurePermissionRequested, this,
          [this](const QUrl& origin, Feature feature) {
            setFeaturePermission(origin, feature, PermissionDeniedByUser);
          });
}

// One that stays as it came would be tried again and again.
void Page::GiveNoPassword() {
  connect(this, &QWebEnginePage::authenticationRequired, this,
          [](const QUrl&, QAuthenticator* who) { *who = QAuthenticator(); });
  connect(this, &QWebEnginePage::proxyAuthenticationRequired, this,
          [](const QUrl&, QAuthenticator* who, const QString&) { *who = QAuthenticator(); });
}

void Page::Limit() {
  using Setting = QWebEngineSettings::WebAttribute;
  for (const Setting off :
       {QWebEngineSettings::JavascriptCanOpenWindows, QWebEngineSettings::PluginsEnabled,
        QWebEngineSettings::PdfViewerEnabled, QWebEngineSettings::FullScreenSupportEnabled,
        QWebEngineSettings::ScreenCaptureEnabled, QWebEngineSettings::DnsPrefetchEnabled,
        QWebEngineSettings::HyperlinkAuditingEnabled,
        QWebEngineSettings::LocalContentCanAccessRemoteUrls,
        QWebEngineSettings::NavigateOnDropEnabled, QWebEngineSettings::WebGLEnabled}) {
    settings()->setAttribute(off, false);
  }
  settings()->setAttribute(QWebEngineSettings::PlaybackRequiresUserGesture, true);
  // Otherwise another program is asked to open what this one doesn't know.
  settings()->setUnknownUrlSchemePolicy(QWebEngineSettings::DisallowUnknownUrlSchemes);
}

bool Page::acceptNavigationRequest(const QUrl& address, NavigationType, bool whole) {
  return whole ? allows_(address) : AllowsPart(allows_, url(), address);
}

}  // namespace web
