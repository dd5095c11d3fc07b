#include "qt/ports/table_print.h"

#include <algorithm>
#include <utility>

#include <QPageRanges>
#include <QPen>

namespace qt {
namespace {

constexpr double kTwipsAnInch = 1440;
constexpr double kWriting = 8;  // points
constexpr double kSmallestWriting = 3;

QString Text(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

int FlagsOf(platform::Align align) {
  constexpr int kLine = Qt::AlignVCenter | Qt::TextSingleLine;
  switch (align) {
    case platform::Align::right:
      return Qt::AlignRight | kLine;
    case platform::Align::center:
      return Qt::AlignHCenter | kLine;
    default:
      return Qt::AlignLeft | kLine;
  }
}

}  // namespace

TablePages::TablePages(const platform::Grid& grid, QString title, const QPaintDevice& device,
                       const QRectF& area)
    : grid_(grid), title_(std::move(title)), device_(device), area_(area) {
  double twips = 0;
  for (int c = 0; c < grid.cols(); ++c) twips += grid.width(c);
  const double pixels = twips * device.logicalDpiX() / kTwipsAnInch;
  const double shrink = pixels > area.width() ? area.width() / pixels : 1;
  PlaceColumns(shrink * device.logicalDpiX() / kTwipsAnInch);

  font_.setPointSizeF(std::max(kWriting * shrink, kSmallestWriting));
  heading_font_ = font_;
  heading_font_.setBold(true);
  title_font_.setPointSizeF(kWriting * 1.5);
  title_font_.setBold(true);

  row_height_ = QFontMetricsF(font_, &device).height() * 1.3;
  const double title_height = QFontMetricsF(title_font_, &device).height() * 1.6;
  table_top_ = area.top() + title_height;
  // The heading and the number of the page take a row each.
  const double left_for_rows = area.bottom() - table_top_ - 2.5 * row_height_;
  rows_a_page_ = std::max(1, static_cast<int>(left_for_rows / row_height_));
}

void TablePages::PlaceColumns(double pixels_a_twip) {
  double left = area_.left();
  for (int c = 0; c < grid_.cols(); ++c) {
    const double width = grid_.width(c) * pixels_a_twip;
    if (width > 0) columns_.push_back({c, left, width});
    left += width;
  }
}

int TablePages::count() const {
  const int rows = std::max(0, grid_.rows() - 1);
  return std::max(1, (rows + rows_a_page_ - 1) / rows_a_page_);
}

void TablePages::Draw(QPainter& painter, int page) const {
  painter.setPen(QPen(Qt::black, row_height_ / 30));
  painter.setFont(title_font_);
  painter.drawText(area_, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine, title_);

  painter.setFont(heading_font_);
  DrawRow(painter, 0, table_top_);
  double top = table_top_ + row_height_;
  painter.drawLine(QPointF(area_.left(), top), QPointF(area_.right(), top));

  painter.setFont(font_);
  const int first = 1 + page * rows_a_page_;
  const int end = std::min(grid_.rows(), first + rows_a_page_);
  for (int row = first; row < end; ++row, top += row_height_) DrawRow(painter, row, top);

  const QString foot = QStringLiteral("Página %1 de %2").arg(page + 1).arg(count());
  painter.drawText(area_, Qt::AlignRight | Qt::AlignBottom | Qt::TextSingleLine, foot);
}

void TablePages::DrawRow(QPainter& painter, int row, double top) const {
  const QFontMetricsF metrics(painter.font(), &device_);
  const double gap = row_height_ / 6;
  for (const Column& column : columns_) {
    const QRectF cell(column.left + gap, top, column.width - 2 * gap, row_height_);
    const QString text = Text(grid_.text(row, column.number));
    painter.drawText(cell, FlagsOf(grid_.align(column.number)),
                     metrics.elidedText(text, Qt::ElideRight, cell.width()));
  }
}

bool PrintTable(QPagedPaintDevice& device, const platform::Grid& grid, const QString& title) {
  QPainter painter;
  if (!painter.begin(&device)) return false;
  const TablePages pages(grid, title, device, painter.viewport());
  const QPageRanges chosen = device.pageRanges();
  bool first = true;
  for (int page = 0; page < pages.count(); ++page) {
    if (!chosen.isEmpty() && !chosen.contains(page + 1)) continue;
    if (!first && !device.newPage()) return false;
    first = false;
    pages.Draw(painter, page);
  }
  return painter.end();
}

}  // namespace qt
