#include "widgets/WProblemLabel.h"

#include <QEvent>

namespace {

const QColor cOnLight(0xD0, 0x02, 0x1B);
const QColor cOnDark(0xFF, 0x7B, 0x7B);
constexpr int cMiddle = 128; // lightness

} // namespace

WProblemLabel::WProblemLabel(QWidget *parent)
    : QLabel(parent)
{
    setObjectName("problemLabel");
    setWordWrap(true);
    QFont italic = font();
    italic.setItalic(true);
    setFont(italic);
    takeColor();
}

void WProblemLabel::takeColor()
{
    const QColor color = palette().color(QPalette::Window).lightness() < cMiddle ? cOnDark : cOnLight;
    if (palette().color(QPalette::WindowText) == color)
        return;
    QPalette red = palette();
    red.setColor(QPalette::WindowText, color);
    setPalette(red);
}

void WProblemLabel::changeEvent(QEvent *event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        takeColor();
}
