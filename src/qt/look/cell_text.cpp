#include "qt/look/cell_text.h"

#include <QGlyphRun>

#include "qt/look/text.h"

namespace qt {
namespace {

constexpr double kNarrowest = 0.8;

/// The next character of `utf8` from `at` on; 0 for one past U+017F or for broken bytes.
char32_t NextWestern(std::string_view utf8, std::size_t& at) {
  const auto lead = static_cast<unsigned char>(utf8[at++]);
  if (lead < 0x80) return lead;
  if (lead < 0xC2 || lead > 0xC5 || at == utf8.size()) return 0;
  const auto next = static_cast<unsigned char>(utf8[at++]);
  if ((next & 0xC0u) != 0x80) return 0;
  return static_cast<char32_t>((lead & 0x1Fu) << 6 | (next & 0x3Fu));
}

Qt::Alignment ToQt(platform::Align align) {
  switch (align) {
    case platform::Align::left:
      return Qt::AlignLeft;
    case platform::Align::center:
      return Qt::AlignHCenter;
    case platform::Align::right:
      break;
  }
  return Qt::AlignRight;
}

}  // namespace

CellText::CellText(const QFont& font)
    : font_(font), metrics_(font), raw_(QRawFont::fromFont(font)) {}

const CellText::Glyph& CellText::LookUp(char16_t character, Glyph& glyph) const {
  if (glyph.sought) return glyph;
  glyph.sought = true;
  const auto found = raw_.glyphIndexesForString(QString(QChar(character)));
  if (found.size() != 1 || found[0] == 0) return glyph;
  glyph.index = found[0];
  glyph.width = raw_.advancesForGlyphIndexes(found).value(0).x();
  return glyph;
}

// Control characters have no glyph.
const CellText::Glyph& CellText::GlyphOf(char32_t character) {
  const bool printable = character >= 0x20 && (character < 0x7F || character >= 0xA0);
  if (!printable || character >= kKnown) return known_[0];
  return LookUp(static_cast<char16_t>(character), known_[character]);
}

bool CellText::Lay(std::string_view utf8) {
  while (!utf8.empty() && utf8.back() == ' ') utf8.remove_suffix(1);
  glyphs_.clear();
  places_.clear();
  end_ = 0;
  for (std::size_t at = 0; at < utf8.size();) {
    const Glyph& glyph = GlyphOf(NextWestern(utf8, at));
    if (glyph.index == 0) return false;
    glyphs_.push_back(glyph.index);
    places_.emplace_back(end_, 0);
    end_ += glyph.width;
  }
  return true;
}

void CellText::Elide(double width) {
  const Glyph& end = LookUp(u'\u2026', ellipsis_);
  while (!glyphs_.empty() && end_ + end.width > width) {
    end_ = places_.back().x();
    glyphs_.pop_back();
    places_.pop_back();
  }
  glyphs_.push_back(end.index);
  places_.emplace_back(end_, 0);
  end_ += end.width;
}

void CellText::Draw(QPainter& painter, const QRectF& place, std::string_view utf8,
                    platform::Align align, Fit fit) {
  if (!Lay(utf8)) return DrawShaped(painter, place, utf8, align);
  if (glyphs_.empty()) return;
  const double room = place.width();
  const bool narrow = fit == Fit::narrow && end_ > room && end_ * kNarrowest <= room;
  const double squeeze = narrow ? room / end_ : 1;
  const bool fits = end_ * squeeze <= room;
  if (!fits) Elide(room);
  double left = place.left();
  if (fits && align != platform::Align::left) {
    left += (room - end_ * squeeze) / (align == platform::Align::center ? 2 : 1);
  }
  const double base = place.top() + (place.height() + metrics_.ascent() - metrics_.descent()) / 2;
  QGlyphRun run;
  run.setRawFont(raw_);
  run.setRawData(glyphs_.data(), places_.data(), static_cast<int>(glyphs_.size()));
  if (squeeze == 1) return painter.drawGlyphRun(QPointF(left, qRound(base)), run);
  const QTransform before = painter.transform();
  painter.translate(left, qRound(base));
  painter.scale(squeeze, 1);
  painter.drawGlyphRun(QPointF(), run);
  painter.setTransform(before);
}

void CellText::DrawShaped(QPainter& painter, const QRectF& place, std::string_view utf8,
                          platform::Align align) const {
  painter.setFont(font_);
  painter.drawText(place, int(ToQt(align) | Qt::AlignVCenter) | Qt::TextSingleLine,
                   metrics_.elidedText(Text(utf8), Qt::ElideRight, place.width()));
}

double CellText::WidthOf(std::string_view utf8) {
  return Lay(utf8) ? end_ : metrics_.horizontalAdvance(Text(utf8));
}

}  // namespace qt
