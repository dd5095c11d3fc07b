#pragma once

#include <QObject>

#include "qt/look/web_plugin.h"

namespace web {

/// The plugin's root, of which there is one. It draws without a graphics card.
class Plugin : public QObject, public qt::WebPlugin {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID "cotirama.WebPlugin/1")
  Q_INTERFACES(qt::WebPlugin)

 public:
  Plugin();
  [[nodiscard]] qt::WebScreen Make(const qt::WebHooks& hooks, QWidget& parent) override;
};

}  // namespace web
