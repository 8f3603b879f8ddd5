#include "WGuide.h"

#include "WGuideBrowser.h"
#include "ui/TIcons.h"

#include <QAction>
#include <QDir>
#include <QTextBlock>
#include <QToolBar>
#include <QUrl>
#include <QVBoxLayout>

namespace {

constexpr QSize cFirstSize(900, 760);

} // namespace

WGuide::WGuide(const QString &folder, QWidget *parent)
    : QWidget(parent, Qt::Window)
    , fFolder(folder)
    , fBrowser(new WGuideBrowser)
{
    setObjectName("guideWindow");
    setWindowTitle(tr("Guide"));
    auto *bar = new QToolBar;
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    const auto add = [bar](const QString &text, const char *icon, const QKeySequence &key) {
        QAction *action = bar->addAction(TIcons::load(icon), text);
        action->setShortcut(key);
        action->setToolTip(QString("%1 (%2)").arg(text, key.toString(QKeySequence::NativeText)));
        return action;
    };
    QAction *back = add(tr("Back"), "::/images/page-previous.svg", QKeySequence("Alt+Left"));
    QAction *forward = add(tr("Forward"), "::/images/page-next.svg", QKeySequence("Alt+Right"));
    QAction *contents = add(tr("Contents"), "::/images/help.svg", QKeySequence("Alt+Home"));
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(fBrowser, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(fBrowser, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
    connect(back, &QAction::triggered, fBrowser, &QTextBrowser::backward);
    connect(forward, &QAction::triggered, fBrowser, &QTextBrowser::forward);
    connect(contents, &QAction::triggered, this, &WGuide::showContents);
    connect(fBrowser, &QTextBrowser::sourceChanged, this,
            [this] { setWindowTitle(tr("Guide: %1").arg(fBrowser->document()->firstBlock().text())); });
    auto *close = new QAction(this);
    close->setShortcut(Qt::Key_Escape);
    connect(close, &QAction::triggered, this, &QWidget::close);
    addAction(close);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(bar);
    layout->addWidget(fBrowser);
    resize(cFirstSize);
    fBrowser->setFocus();
}

void WGuide::showContents()
{
    fBrowser->setSource(QUrl::fromLocalFile(QDir(fFolder).filePath("README.md")));
}
