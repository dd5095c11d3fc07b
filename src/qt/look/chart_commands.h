#pragma once

#include <functional>
#include <vector>

#include <QKeySequence>
#include <QMenu>
#include <QWidget>

namespace qt {

/// What can be done with a chart, from its menu, its bar or by a key.
struct ChartCommand {
  QString caption, button;  // in the menu; in the bar, where it is short, or empty for none there
  QKeySequence key{};
  std::function<void()> run{};
  bool enabled = true;
  bool checkable = false, checked = false;
};
using ChartCommands = std::vector<ChartCommand>;

/// Adds the commands to `menu`.
void FillMenu(QMenu& menu, const ChartCommands& commands);

/// The bar with the commands that have a button. `commands` is asked again at each press, and
/// outlives it.
[[nodiscard]] QWidget* MakeChartBar(const std::function<ChartCommands()>& commands,
                                    QWidget* parent);
inline constexpr int kChartBarHeight = 33;

/// Asks, without waiting for it, where `picture` shall be saved as PNG, and does that. `name` is
/// what the file is called unless the user says otherwise. A disk that refuses is told of.
void AskToSave(const QPixmap& picture, const QString& name, QWidget* parent);
/// The whole picture, or what stood there before.
[[nodiscard]] bool SavePicture(const QPixmap& picture, const QString& path);

}  // namespace qt
