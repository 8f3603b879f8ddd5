#include "WYrexColorButton.h"

#include <QColorDialog>
#include <QEvent>
#include <QPainter>

namespace {

constexpr QSize cSwatch(28, 14);
constexpr int cCheck = 7; // of the pattern that shows through, pixels

} // namespace

WYrexColorButton::WYrexColorButton(QWidget *parent)
    : QToolButton(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    setIconSize(cSwatch);
    setMinimumWidth(100);
    connect(this, &QToolButton::clicked, this, &WYrexColorButton::ask);
    draw();
}

void WYrexColorButton::setColor(const QColor &color)
{
    fColor = color;
    draw();
}

void WYrexColorButton::showInstead(const QString &text)
{
    fInstead = text;
    setEnabled(text.isEmpty());
    draw();
}

void WYrexColorButton::choose(const QColor &color)
{
    if (!color.isValid() || color == fColor)
        return;
    setColor(color);
    emit chosen(color);
}

void WYrexColorButton::ask()
{
    auto *dialog = new QColorDialog(fColor.isValid() ? fColor : QColor(Qt::black), this);
    dialog->setOption(QColorDialog::ShowAlphaChannel);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QColorDialog::colorSelected, this, &WYrexColorButton::choose);
    dialog->open();
}

void WYrexColorButton::changeEvent(QEvent *event)
{
    QToolButton::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::EnabledChange)
        draw();
}

void WYrexColorButton::draw()
{
    setText(!fInstead.isEmpty() ? fInstead : fColor.isValid() ? fColor.name() : tr("(various)"));
    QPixmap picture(cSwatch * devicePixelRatioF());
    picture.setDevicePixelRatio(devicePixelRatioF());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    if (fColor.isValid() && fInstead.isEmpty()) {
        const QRect all(QPoint(0, 0), cSwatch);
        for (int x = 0; fColor.alpha() < 255 && x < cSwatch.width(); x += cCheck) {
            for (int y = 0; y < cSwatch.height(); y += cCheck)
                painter.fillRect(x, y, cCheck, cCheck, (x + y) / cCheck % 2 ? Qt::lightGray : Qt::white);
        }
        painter.fillRect(all, fColor);
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawRect(all.adjusted(0, 0, -1, -1));
    }
    painter.end();
    setIcon(picture);
}
