#pragma once

#include <vector>

#include <QFont>
#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QRectF>
#include <QString>

#include "platform/grid.h"

namespace qt {

/// A grid laid out on pages: the title and the headings on each, as many rows as fit, and "Página
/// n de m". Columns keep their widths, or shrink together with the writing until they fit. Prints
/// dark on white, whatever the colours of the screen. `grid` outlives it and doesn't change
/// meanwhile.
class TablePages {
 public:
  /// `device` gives the resolution, `area` is the writable part of a page in its pixels.
  TablePages(const platform::Grid& grid, QString title, const QPaintDevice& device,
             const QRectF& area);

  /// At least 1.
  [[nodiscard]] int count() const;
  /// `page` from 0.
  void Draw(QPainter& painter, int page) const;

 private:
  struct Column {
    int number;
    double left, width;
  };

  void PlaceColumns(double pixels_a_twip);
  void DrawRow(QPainter& painter, int row, double top) const;

  const platform::Grid& grid_;
  QString title_;
  const QPaintDevice& device_;
  QRectF area_;
  std::vector<Column> columns_;
  QFont font_, heading_font_, title_font_;
  double row_height_ = 0, table_top_ = 0;
  int rows_a_page_ = 1;
};

/// Prints the pages that `device` is set to, or all. False when it can't be printed on.
bool PrintTable(QPagedPaintDevice& device, const platform::Grid& grid, const QString& title);

}  // namespace qt
