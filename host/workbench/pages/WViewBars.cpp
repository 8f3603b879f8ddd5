#include "WViewBars.h"

#include <QEvent>
#include <QVBoxLayout>

WViewBars::WViewBars(QWidget *parent)
    : QWidget(parent)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    hide();
}

void WViewBars::add(QWidget *bar)
{
    layout()->addWidget(bar);
    bar->installEventFilter(this);
    bar->show();
    emit heightChanged();
}

int WViewBars::heightFor(int width) const
{
    int height = 0;
    for (int i = 0; i < layout()->count(); ++i) {
        const QWidget *bar = layout()->itemAt(i)->widget();
        if (!bar->isHidden())
            height += bar->hasHeightForWidth() ? bar->heightForWidth(width) : bar->sizeHint().height();
    }
    return height;
}

bool WViewBars::eventFilter(QObject *object, QEvent *event)
{
    // the strip itself is hidden without bars, so that only the bars' own wish to be seen tells
    if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent)
        emit heightChanged();
    return QWidget::eventFilter(object, event);
}

void WViewBars::childEvent(QChildEvent *event)
{
    QWidget::childEvent(event);
    if (event->removed())
        emit heightChanged(); // the layout knows already
}
