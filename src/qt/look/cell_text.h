#pragma once

#include <array>
#include <string_view>
#include <vector>

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QRawFont>
#include <QRectF>

#include "platform/grid.h"

namespace qt {

/// Draws one-line texts of a font fast: glyphs and widths of the western characters are looked up
/// once and texts are not shaped. A text with other characters takes Qt's own road. What is too
/// wide ends in "…"; where `Fit::narrow` allows it, what is only a little too wide is drawn
/// narrower instead. The pen of the painter holds.
class CellText {
 public:
  enum class Fit { narrow, elide };

  explicit CellText(const QFont& font);

  void Draw(QPainter& painter, const QRectF& place, std::string_view utf8, platform::Align align,
            Fit fit = Fit::narrow);
  [[nodiscard]] double WidthOf(std::string_view utf8);
  [[nodiscard]] double height() const { return metrics_.height(); }
  [[nodiscard]] const QFont& font() const { return font_; }

 private:
  static constexpr char32_t kKnown = 0x180;
  struct Glyph {
    quint32 index = 0;
    double width = 0;
    bool sought = false;
  };

  const Glyph& LookUp(char16_t character, Glyph& glyph) const;
  [[nodiscard]] const Glyph& GlyphOf(char32_t character);
  [[nodiscard]] bool Lay(std::string_view utf8);
  void Elide(double width);
  void DrawShaped(QPainter& painter, const QRectF& place, std::string_view utf8,
                  platform::Align align) const;

  QFont font_;
  QFontMetricsF metrics_;
  QRawFont raw_;
  std::array<Glyph, kKnown> known_{};
  Glyph ellipsis_;
  // The text that is being laid out; reused.
  std::vector<quint32> glyphs_;
  std::vector<QPointF> places_;
  double end_ = 0;
};

}  // namespace qt
