#include "WShortcutsDialog.h"

#include "TFuzzyMatch.h"
#include "TMenuWalk.h"
#include "TShortcuts.h"
#include "WKeyEdit.h"
#include "exchange/ExportFile.h"
#include "exchange/PagePrinting.h"
#include "settings/TDefaultsIni.h"
#include "widgets/GuiUtils.h"
#include "widgets/WProblemLabel.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QTextDocument>
#include <QTreeWidget>

namespace {

constexpr char cExportFolder[] = "Kelmora/Folders/Export";
enum TColumn { cName, cKeys, cContext };
constexpr QSize cSize(620, 640);
constexpr int cNameWidth = 300;
constexpr int cKeysWidth = 160;

QAction *actionOf(const QTreeWidgetItem *row)
{
    return row ? row->data(cName, Qt::UserRole).value<QAction *>() : nullptr;
}

} // namespace

WShortcutsDialog::WShortcutsDialog(TShortcuts &shortcuts, QWidget *parent)
    : QDialog(parent)
    , fShortcuts(shortcuts)
    , fSearch(new QLineEdit(this))
    , fTree(new QTreeWidget(this))
    , fKey(new WKeyEdit(this))
    , fProblem(new WProblemLabel(this))
{
    setWindowTitle(tr("Keyboard"));
    setObjectName("shortcutsDialog");
    fSearch->setPlaceholderText(tr("Find an action or a key"));
    fSearch->setClearButtonEnabled(true);
    fSearch->setObjectName("searchLineEdit");
    fTree->setObjectName("shortcutsTree");
    fKey->setObjectName("keySequenceEdit");
    fTree->setHeaderLabels({tr("Action"), tr("Keys"), tr("Works")});
    fTree->setUniformRowHeights(true);
    fTree->header()->resizeSection(cName, cNameWidth);
    fTree->header()->resizeSection(cKeys, cKeysWidth);
    layOut();
    fill();
    resize(cSize);
    connect(fSearch, &QLineEdit::textChanged, this, &WShortcutsDialog::narrow);
    connect(fTree, &QTreeWidget::currentItemChanged, this, &WShortcutsDialog::showChosen);
    connect(fKey, &WKeyEdit::struck, this, &WShortcutsDialog::takeKey);
    connect(&fShortcuts, &TShortcuts::changed, this, &WShortcutsDialog::showKeys);
    showChosen();
    fSearch->setFocus();
}

void WShortcutsDialog::layOut()
{
    auto *keyLabel = new QLabel(tr("New &key:"), this);
    keyLabel->setBuddy(fKey);
    auto *none = new QPushButton(tr("&No Key"), this);
    auto *reset = new QPushButton(tr("&Reset"), this);
    none->setObjectName("noKeyButton");
    reset->setObjectName("resetButton");
    fChosenOnly = {fKey, none, reset};
    auto *edit = new QHBoxLayout;
    edit->addWidget(keyLabel);
    edit->addWidget(fKey, 1);
    edit->addWidget(none);
    edit->addWidget(reset);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    auto *all = buttons->addButton(tr("Reset &All"), QDialogButtonBox::ResetRole);
    auto *exported = buttons->addButton(tr("&Export..."), QDialogButtonBox::ActionRole);
    auto *printed = buttons->addButton(tr("&Print..."), QDialogButtonBox::ActionRole);
    for (QPushButton *button : {none, reset, all, exported, printed})
        button->setAutoDefault(false); // Return belongs to the key that is pressed
    all->setObjectName("resetAllButton");
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(fSearch);
    layout->addWidget(fTree, 1);
    layout->addLayout(edit);
    layout->addWidget(fProblem);
    layout->addWidget(buttons);
    connect(none, &QPushButton::clicked, this, &WShortcutsDialog::clearKey);
    connect(reset, &QPushButton::clicked, this, &WShortcutsDialog::resetChosen);
    connect(all, &QPushButton::clicked, this, &WShortcutsDialog::resetAll);
    connect(exported, &QPushButton::clicked, this, &WShortcutsDialog::exportDialog);
    connect(printed, &QPushButton::clicked, this, &WShortcutsDialog::printDialog);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void WShortcutsDialog::fill()
{
    QHash<QString, QTreeWidgetItem *> menus;
    for (const TMenuEntry &entry : fShortcuts.entries()) {
        const QString path = entry.fPath.join(" > ");
        QTreeWidgetItem *&menu = menus[path];
        if (!menu) {
            menu = new QTreeWidgetItem(fTree, {path});
            menu->setFlags(Qt::ItemIsEnabled);
            menu->setFirstColumnSpanned(true);
        }
        auto *row = new QTreeWidgetItem(menu, {TMenuWalk::plainText(entry.fAction->text())});
        row->setData(cName, Qt::UserRole, QVariant::fromValue(entry.fAction));
        row->setText(cContext, TShortcuts::isPlotAction(*entry.fAction) ? tr("on the plot") : tr("everywhere"));
    }
    fTree->expandAll();
    showKeys();
}

void WShortcutsDialog::showKeys()
{
    for (QTreeWidgetItemIterator it(fTree); *it; ++it) {
        const QAction *action = actionOf(*it);
        if (!action)
            continue;
        (*it)->setText(cKeys, QKeySequence::listToString(action->shortcuts(), QKeySequence::NativeText));
        QFont font = fTree->font();
        font.setBold(fShortcuts.isChanged(*action));
        (*it)->setFont(cKeys, font);
    }
}

void WShortcutsDialog::narrow(const QString &text)
{
    for (int i = 0; i < fTree->topLevelItemCount(); ++i) {
        QTreeWidgetItem *menu = fTree->topLevelItem(i);
        bool isAny = false;
        for (int k = 0; k < menu->childCount(); ++k) {
            QTreeWidgetItem *row = menu->child(k);
            const bool isKey = row->text(cKeys).contains(text, Qt::CaseInsensitive);
            const bool fits = isKey || TFuzzyMatch::score(text, row->text(cName), menu->text(cName)) >= 0;
            row->setHidden(!fits);
            isAny |= fits;
        }
        menu->setHidden(!isAny);
    }
}

QAction *WShortcutsDialog::chosen() const
{
    return actionOf(fTree->currentItem());
}

void WShortcutsDialog::choose(const QAction *action)
{
    for (QTreeWidgetItemIterator it(fTree); *it; ++it) {
        if (actionOf(*it) == action)
            fTree->setCurrentItem(*it);
    }
}

void WShortcutsDialog::tell(const QString &problem)
{
    fProblem->setText(problem);
}

void WShortcutsDialog::showChosen()
{
    const QAction *action = chosen();
    for (QWidget *field : qAsConst(fChosenOnly))
        field->setEnabled(action && !TShortcuts::isFixed(*action));
    fKey->setKeySequence(action ? action->shortcut() : QKeySequence());
    tell(QString());
}

/// A refused key stays in the field beside the reason.
void WShortcutsDialog::takeKey(const QKeySequence &key)
{
    QAction *action = chosen();
    if (!action)
        return;
    tell(fShortcuts.refusal(*action, key));
    fShortcuts.setKey(action, key);
}

void WShortcutsDialog::clearKey()
{
    fShortcuts.setKey(chosen(), QKeySequence());
    showChosen();
}

void WShortcutsDialog::tellIncomplete(const QStringList &names)
{
    showChosen();
    if (!names.isEmpty())
        tell(tr("Another action has the key of: %1. Reset All gives all keys back.").arg(names.join(", ")));
}

void WShortcutsDialog::resetChosen()
{
    tellIncomplete(fShortcuts.reset({chosen()}));
}

void WShortcutsDialog::resetAll()
{
    tellIncomplete(fShortcuts.resetAll());
}

bool WShortcutsDialog::exportTo(const QString &path)
{
    QString error;
    if (ExportFile::write(path, fShortcuts.html().toUtf8(), &error))
        return true;
    Utils::Gui::message(this, QMessageBox::Warning, tr("Export Keyboard"),
                        tr("%1. Choose another name or folder.").arg(error));
    return false;
}

void WShortcutsDialog::exportDialog()
{
    const QString folder = TDefaultsIni().value(cExportFolder, QDir::homePath()).toString();
    QString path = QFileDialog::getSaveFileName(this, tr("Export Keyboard"), QDir(folder).filePath("keyboard.html"),
                                                tr("Web pages") + " (*.html)");
    if (path.isEmpty())
        return;
    if (QFileInfo(path).suffix().isEmpty())
        path += ".html";
    exportTo(path);
}

void WShortcutsDialog::print(QPrinter *printer)
{
    QTextDocument page;
    page.setHtml(fShortcuts.html());
    QString error;
    if (!PagePrinting::printText(*printer, page, error))
        Utils::Gui::message(this, QMessageBox::Warning, tr("Print"), error);
}

void WShortcutsDialog::printDialog()
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(windowTitle());
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted)
        print(&printer);
}
