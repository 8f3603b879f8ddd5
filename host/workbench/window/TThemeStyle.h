#pragma once

#include <QProxyStyle>

/// Fusion, with boxes and circles to tick that can be seen on dark ground: their outlines are made from the colour of
/// the window there, and nearly vanish in it.
class TThemeStyle : public QProxyStyle
{
    Q_OBJECT

public:
    TThemeStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
};
