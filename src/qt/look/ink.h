#pragma once

#include <array>
#include <optional>

#include <QColor>
#include <QPainter>

namespace qt {

/// The colour of the thin edge by which a text of colour `ink` is told from `ground` where the two
/// are so near each other that it can't be read; nothing where it reads well.
[[nodiscard]] std::optional<QColor> EdgeFor(const QColor& ink, const QColor& ground);

/// Lets `draw` draw a text on `ground` so that it can be read whatever the colours are: it is
/// called with the pen and place of the text, and before that for each bit of the edge it needs.
template <typename Draw>
void DrawReadable(QPainter& painter, const QColor& ink, const QColor& ground, Draw draw) {
  if (const auto edge = EdgeFor(ink, ground)) {
    constexpr std::array<QPointF, 8> kAround{
        {{-1, 0}, {1, 0}, {0, -1}, {0, 1}, {-0.7, -0.7}, {0.7, -0.7}, {-0.7, 0.7}, {0.7, 0.7}}};
    painter.setPen(*edge);
    for (const QPointF& step : kAround) {
      painter.translate(step);
      draw();
      painter.translate(-step);
    }
  }
  painter.setPen(ink);
  draw();
}

}  // namespace qt
