// The QStyle that draws Qt's own controls in the theme's colours, light and dark.
//
// This class only dispatches to the functions in ui/theme/style, which has one file for each
// control. All other elements are drawn by Fusion with our palette.
//
// Push buttons, combo boxes, check boxes and radio buttons are a few points larger than their
// visible shape, to leave room for the focus ring. Layouts align the visible shapes.
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

    // Returns the icons of alerts, among others.
    QIcon standardIcon(StandardPixmap picture, const QStyleOption* option,
                       const QWidget* widget) const override;
};

} // namespace glidemap
