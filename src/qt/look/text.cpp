#include "qt/look/text.h"

#include <QTextDocument>

namespace qt {

QString OneLine(QString text) {
  text.replace(QLatin1Char('\t'), QStringLiteral("  "));
  for (QChar& character : text) {
    const bool breaks = character == QChar::LineSeparator || character == QChar::ParagraphSeparator;
    if (breaks || character.category() == QChar::Other_Control) character = QLatin1Char(' ');
  }
  return text;
}

QString ToolTipText(std::string_view plain) {
  while (!plain.empty() && plain.back() == ' ') plain.remove_suffix(1);
  const QString text = Text(plain);
  // Only rich text is wrapped to the screen.
  constexpr qsizetype kLong = 100;
  if (text.size() <= kLong && !Qt::mightBeRichText(text)) return text;
  return QStringLiteral("<p style='white-space:pre-wrap'>%1</p>").arg(text.toHtmlEscaped());
}

QString SpokenCaption(std::string_view caption) {
  QString spoken;
  for (std::size_t i = 0; i < caption.size();) {
    if (caption[i] == '&') ++i;
    const std::size_t end = caption.find('&', i + (i < caption.size() && caption[i] == '&'));
    spoken += Text(caption.substr(i, end - i));
    i = end == std::string_view::npos ? caption.size() : end;
  }
  return spoken;
}

QString WithoutMnemonic(std::string_view plain) {
  return Text(plain).replace(QLatin1Char('&'), QStringLiteral("&&"));
}

}  // namespace qt
