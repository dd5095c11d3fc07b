#include <algorithm>

#include <QApplication>

#include "desk.h"
#include "feed_process.h"
#include "process.h"
#include "qt/look/ticker_widget.h"
#include "report.h"
#include "scenarios.h"

namespace load {
namespace {

double PercentOfACore(double seconds) {
  const double used = ProcessorTime();
  RunFor(seconds);
  return (ProcessorTime() - used) / seconds * 100;
}

/// Waits until the tickers have brought in what they have and stand.
bool Rests() {
  return RunUntil(60, [] {
    const auto widgets = QApplication::allWidgets();
    return std::none_of(widgets.begin(), widgets.end(), [](const QWidget* widget) {
      const auto* ticker = dynamic_cast<const qt::TickerWidget*>(widget);
      return ticker && ticker->moving();
    });
  });
}

}  // namespace

bool Idle(double seconds) {
  FeedProcess feed({"--quotes", "0", "--burst", "5"});
  Desk desk(feed.port());
  Heading("A quiet market");
  RunFor(1);
  Line("before the login, the status ticker comes in", PercentOfACore(2), "% of core");
  if (!Rests()) return false;
  Line("before the login", PercentOfACore(seconds), "% of core", 1);
  desk.ShowBoard();
  desk.LogIn();
  if (!RunUntil(20, [&] { return desk.terminal.Continuo.G.rows() > 100; }) || !Rests()) {
    return false;
  }
  Line("connected, board visible", PercentOfACore(seconds), "% of core", 1);
  desk.terminal.MDI.Check2.set_value(1);
  RunFor(1);
  Line("connected, the market ticker comes in", PercentOfACore(2), "% of core");
  if (!Rests()) return false;
  Line("connected, board and market ticker visible", PercentOfACore(seconds), "% of core", 1);
  return true;
}

}  // namespace load
