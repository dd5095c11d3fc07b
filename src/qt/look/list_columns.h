#pragma once

#include <functional>
#include <string>
#include <vector>

#include <QFontMetrics>
#include <QPainter>
#include <QStringList>

namespace qt {

/// Lines as cells, without the blanks around them, in common columns, each as wide as its widest
/// cell and its heading if there is one. Their widths are found as the lines come, so that to draw
/// a line costs the same in a list of any length. Where the room is too narrow the widest columns
/// that stand left give way.
class ListColumns {
 public:
  using Split = std::function<QStringList(const QString& line)>;

  ListColumns(Split split, QList<Qt::Alignment> alignments, QStringList headings = {});

  /// Takes over the lines. Only those that have been added since are looked at, unless an earlier
  /// one or the font has changed.
  void Measure(const std::vector<std::string>& lines, const QFont& font);
  /// Width of all columns with the gaps between them.
  [[nodiscard]] int width() const;
  [[nodiscard]] bool headed() const { return !headings_.empty(); }
  /// The cells with two blanks between.
  [[nodiscard]] QString Joined(const QString& line) const;
  /// Draws line `row`, from 0, with pen and font of the painter; none where it isn't known.
  void Draw(QPainter& painter, const QRect& room, std::size_t row) const;
  void DrawHeadings(QPainter& painter, const QRect& room) const {
    DrawCells(painter, room, headings_);
  }

 private:
  void Add(const std::string& line);
  void Widen(const QStringList& cells);
  void DrawCells(QPainter& painter, const QRect& room, const QStringList& cells) const;
  [[nodiscard]] Qt::Alignment AlignmentOf(qsizetype column) const;
  [[nodiscard]] QList<int> WidthsIn(int room) const;

  Split split_;
  QList<Qt::Alignment> alignments_;
  QStringList headings_;
  QFont font_;
  std::vector<std::string> lines_;
  std::vector<QStringList> cells_;
  QList<int> widths_;
};

}  // namespace qt
