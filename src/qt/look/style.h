#pragma once

#include <QProxyStyle>
#include <QStyleOption>

namespace qt {

/// Flat dark controls over Qt's Fusion: buttons, fields, check and option boxes, menus, scroll bars
/// and the title bars of inner windows. Colours come from the theme; a control with the keyboard
/// focus wears a ring.
class Style : public QProxyStyle {
 public:
  Style();

  using QProxyStyle::polish;
  void polish(QWidget* widget) override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;
  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                       const QWidget* widget) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                         const QWidget* widget) const override;
  QIcon standardIcon(StandardPixmap icon, const QStyleOption* option,
                     const QWidget* widget) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* result) const override;

 private:
  /// The signs of a maximised inner window, at the end of the menu bar.
  void DrawMdiControls(const QStyleOptionComplex& option, QPainter& painter,
                       const QWidget* widget) const;
  void DrawTitleBar(const QStyleOptionTitleBar& option, QPainter& painter,
                    const QWidget* widget) const;
};

}  // namespace qt
