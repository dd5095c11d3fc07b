#include "qt/ports/qt_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>

namespace qt {

void QtClipboard::Clear() { QGuiApplication::clipboard()->clear(); }

void QtClipboard::SetText(std::string_view utf8) {
  QGuiApplication::clipboard()->setText(
      QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())));
}

}  // namespace qt
