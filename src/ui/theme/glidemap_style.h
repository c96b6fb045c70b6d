// The style in which Qt's own controls are drawn, from the theme's colours, in light and in dark.
//
// It says only who draws what; how each control is drawn stands in ui/theme/style, a file a control.
// What is not drawn there is Fusion's, in our palette.
//
// Push buttons, pickers, check boxes and radio buttons are a few points larger than what is drawn of
// them, so that the focus ring has room; layouts align them by what is drawn.
//
// Units:   points.
// Thread:  the main thread.
// Owner:   the application.
// Errors:  none.
#pragma once

#include <QProxyStyle>

namespace glidemap {

class GlidemapStyle : public QProxyStyle {
public:
    GlidemapStyle();

    void polish(QWidget* widget) override;
    void unpolish(QWidget* widget) override;
    using QProxyStyle::polish;
    using QProxyStyle::unpolish;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;

    QRect subElementRect(SubElement element, const QStyleOption* option,
                         const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;

    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;

    // What alerts show beside their text.
    QIcon standardIcon(StandardPixmap picture, const QStyleOption* option,
                       const QWidget* widget) const override;
};

} // namespace glidemap
