#pragma once

#include <QProxyStyle>

/// The style of the program: it measures and draws the controls, in the colours of
/// `Look::Current()`; what it doesn't know is left to the style below, which `below` names.
class SkinStyle : public QProxyStyle {
  Q_OBJECT

 public:
  explicit SkinStyle(const QString& below);

  void polish(QWidget* widget) override;
  void unpolish(QWidget* widget) override;
  using QProxyStyle::polish;
  using QProxyStyle::unpolish;

  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* answer) const override;
  QIcon standardIcon(StandardPixmap icon, const QStyleOption* option,
                     const QWidget* widget) const override;
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                         const QWidget* widget) const override;
  QRect subElementRect(SubElement part, const QStyleOption* option,
                       const QWidget* widget) const override;
  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                       const QWidget* widget) const override;
  void drawPrimitive(PrimitiveElement part, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement part, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;
};
