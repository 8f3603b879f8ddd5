#include "widgets/WOpenSaveWidget.h"
#include "widgets/GuiUtils.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QToolButton>

WOpenSaveWidget::WOpenSaveWidget(const QString &openText, const QString &saveText, const QString &kind,
                                 const QString &suffix, QWidget *parent)
    : QWidget(parent)
    , fKind(kind)
    , fSuffix(suffix)
    , fOpen(new QToolButton(this))
    , fSave(new QToolButton(this))
    , fName(new QLabel(this))
{
    const auto prepare = [](QToolButton *button, const char *name, const QString &text, const QString &toolTip) {
        button->setObjectName(name);
        button->setText(text);
        button->setToolTip(toolTip);
        button->setAccessibleName(toolTip);
        button->setFocusPolicy(Qt::TabFocus);
        button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    };
    prepare(fOpen, "openButton", tr("Open"), openText);
    prepare(fSave, "saveButton", tr("Save"), saveText);
    fOpen->setPopupMode(QToolButton::MenuButtonPopup);
    fOpen->setMenu(new QMenu(fOpen));
    fName->setObjectName("fileName");
    fName->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(fOpen);
    row->addWidget(fSave);
    row->addWidget(fName, 1);
    connect(fOpen, &QToolButton::clicked, this, &WOpenSaveWidget::askForOpen);
    connect(fSave, &QToolButton::clicked, this, &WOpenSaveWidget::askForSave);
    connect(fOpen->menu(), &QMenu::aboutToShow, this, &WOpenSaveWidget::fillMenu);
}

void WOpenSaveWidget::clearFileName()
{
    fFileName.clear();
    showName();
}

void WOpenSaveWidget::addRecentFile(const QString &path)
{
    fFileName = path;
    showName();
    fRecent.removeAll(path);
    fRecent.prepend(path);
    fRecent = fRecent.mid(0, cMaxRecent);
    emit newRecentFile(path);
}

void WOpenSaveWidget::setRecentFiles(const QStringList &paths)
{
    fRecent = paths.mid(0, cMaxRecent);
}

void WOpenSaveWidget::addButton(QToolButton *button)
{
    layout()->addWidget(button);
}

void WOpenSaveWidget::showName()
{
    fName->setText(QFileInfo(fFileName).fileName());
    fName->setToolTip(Utils::Gui::dataTip(QDir::toNativeSeparators(fFileName)));
}

QString WOpenSaveWidget::filter() const
{
    return QString("%1 (*.%2)").arg(fKind, fSuffix);
}

QString WOpenSaveWidget::folder() const
{
    return fRecent.isEmpty() ? QString() : QFileInfo(fRecent.first()).path();
}

void WOpenSaveWidget::askForOpen()
{
    const QString path = QFileDialog::getOpenFileName(this, fOpen->toolTip(), folder(), filter());
    if (!path.isEmpty())
        emit loadFile(path);
}

void WOpenSaveWidget::askForSave()
{
    QFileDialog dialog(this, fSave->toolTip(), folder(), filter());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(fSuffix); // so that an existing file is asked for under its whole name
    if (dialog.exec() == QDialog::Accepted)
        emit saveFile(dialog.selectedFiles().first());
}

void WOpenSaveWidget::fillMenu()
{
    QMenu *menu = fOpen->menu();
    menu->clear();
    for (const QString &path : qAsConst(fRecent)) {
        QAction *action =
            menu->addAction(QFileInfo(path).fileName().replace('&', "&&"), this, [this, path] { emit loadFile(path); });
        action->setToolTip(Utils::Gui::dataTip(QDir::toNativeSeparators(path)));
        action->setEnabled(QFileInfo::exists(path));
    }
    if (fRecent.isEmpty())
        menu->addAction(tr("No recent files"))->setEnabled(false);
    menu->setToolTipsVisible(true);
}
