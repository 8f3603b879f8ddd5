#include "WWarningBar.h"

#include "TTheme.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>

namespace {

constexpr int cMargin = 4;

} // namespace

WWarningBar::WWarningBar(const QString &text, const QString &action, QWidget *parent)
    : QWidget(parent)
    , fText(text)
{
    setObjectName("warningBar");
    TTheme::makeBar(*this);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(2 * cMargin, cMargin, cMargin, cMargin);
    auto *label = new QLabel(text);
    label->setWordWrap(true);
    layout->addWidget(label, 1);
    if (!action.isEmpty()) {
        auto *button = new QPushButton(action);
        button->setObjectName("accept");
        layout->addWidget(button);
        connect(button, &QPushButton::clicked, this, [this] {
            hide();
            deleteLater();
            emit accepted();
        });
    }
    auto *close = new QToolButton;
    close->setObjectName("close");
    close->setAutoRaise(true);
    close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    close->setToolTip(tr("Close"));
    layout->addWidget(close);
    connect(close, &QToolButton::clicked, this, [this] {
        hide();
        deleteLater();
    });
}
