#include "TThemeStyle.h"

#include <QPainter>
#include <QStyleOption>

namespace {

constexpr int cMiddle = 128; // lightness
constexpr int cAlpha = 120;
constexpr int cGreyAlpha = 55; // of what is disabled

} // namespace

TThemeStyle::TThemeStyle()
    : QProxyStyle(QStringLiteral("Fusion"))
{
}

void TThemeStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                                const QWidget *widget) const
{
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool isBox = element == PE_IndicatorCheckBox;
    if ((!isBox && element != PE_IndicatorRadioButton) ||
        option->palette.color(QPalette::Window).lightness() >= cMiddle)
        return;
    QColor outline = option->palette.color(QPalette::WindowText);
    outline.setAlpha(option->state & State_Enabled ? cAlpha : cGreyAlpha);
    painter->save();
    painter->setPen(outline);
    painter->setBrush(Qt::NoBrush);
    painter->setRenderHint(QPainter::Antialiasing);
    const QRectF rect = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
    if (isBox)
        painter->drawRect(rect);
    else
        painter->drawEllipse(rect);
    painter->restore();
}
