#pragma once

#include <QProxyStyle>

namespace quillon {

/// The toolkit's Fusion style with what a black ground needs: frames that can be seen on it, dock titles in the colours
/// of headings, title buttons in the colour of the title's text, and no animation.
class ThemeStyle : public QProxyStyle {
public:
    ThemeStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    QIcon standardIcon(StandardPixmap pixmap, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* answer) const override;
};

}  // namespace quillon
