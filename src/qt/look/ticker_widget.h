#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QWidget>

#include "platform/ticker.h"
#include "platform/ticker_flow.h"
#include "qt/look/cell_text.h"

namespace qt {

/// The strip of a ticker. Moves, and uses the processor, only while it can be seen, the ticker
/// scrolls and not everything stands at rest. The ticker must live until `Drop`.
class TickerWidget : public QWidget {
 public:
  static constexpr double kPixelsPerSecond = 60;

  explicit TickerWidget(const platform::Ticker& ticker, QWidget* parent = nullptr);

  void Refresh();
  void Drop();
  [[nodiscard]] bool moving() const { return timer_.isActive(); }
  [[nodiscard]] QSize sizeHint() const override { return {200, 28}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void StartOrStop();
  void UpdatePieces();
  [[nodiscard]] double WidthOf(const platform::TickerItem& item);

  const platform::Ticker* ticker_;
  CellText text_;
  platform::TickerFlow flow_;
  QBasicTimer timer_;
  QElapsedTimer since_step_;
};

}  // namespace qt
