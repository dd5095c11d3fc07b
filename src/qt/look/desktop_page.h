#pragma once

#include <QLabel>
#include <QPushButton>
#include <QUrl>
#include <QWidget>

namespace qt {

/// Stands where a page would: says that it is in the desktop's browser, where it opens it.
class DesktopPage : public QWidget {
 public:
  explicit DesktopPage(QWidget* parent);
  void Open(const QUrl& address);

 private:
  QUrl address_;
  QLabel* what_;
  QLabel* where_;
  QPushButton* again_;
};

}  // namespace qt
