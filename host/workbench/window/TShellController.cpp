#include "TShellController.h"

#include "TActionTable.h"
#include "TAutosave.h"
#include "TDecimalKeys.h"
#include "TDocumentController.h"
#include "TFileController.h"
#include "TLogFile.h"
#include "TShortcuts.h"
#include "WCommandPalette.h"
#include "WDocumentView.h"
#include "WGuide.h"
#include "WScriptPage.h"
#include "WSettingsDialog.h"
#include "WSettingsPages.h"
#include "WShortcutsDialog.h"
#include "canvas/TCanvasSpectrum.h"
#include "plot/TBasePlot.h"
#include "plugin/IPluginUnits.h"
#include "services/TKelmoraHost.h"
#include "settings/TNumberFormat.h"
#include "ui/PlotHabits.h"
#include "utils/FSUtils.h"
#include "widgets/GuiUtils.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QLabel>
#include <QLocale>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

TShellController::TShellController(TKelmoraHost &host, TActionTable &actions, TDocumentController &documents,
                                   TFileController &files, QMainWindow *window)
    : QObject(window)
    , fHost(host)
    , fActions(actions)
    , fDocuments(documents)
    , fFiles(files)
    , fWindow(window)
    , fShortcuts(new TShortcuts(actions, *window->menuBar(), this))
    , fPalette(new WCommandPalette(
          [this] { return paletteEntries(*fWindow->menuBar(), fActions, fDocuments, fFiles, fHost); }, window))
{
    new TDecimalKeys(this);
    actions.on("commandPalette", [this] { fPalette->open(); });
    actions.on("guide", [this] { showGuide(); });
    actions.on("keyboard", [this] { showKeyboard(); });
    actions.on("settings", [this] { showSettings(); });
    actions.on("logFolder", [this] { openLogFolder(); });
    connect(&files, &TFileController::imported, this, &TShellController::keepFitting);
    takeNumberFormat();
}

void TShellController::takeMenus()
{
    fShortcuts->apply();
}

void TShellController::showKeyboard()
{
    WShortcutsDialog dialog(*fShortcuts,
                            QApplication::activeModalWidget() ? QApplication::activeModalWidget() : fWindow);
    dialog.exec();
}

void TShellController::addImportPage(WSettingsDialog &dialog) const
{
    QList<TUnitChoice> x;
    QList<TUnitChoice> y;
    for (QObject *plugin : fHost.plugins()) {
        if (const auto *units = qobject_cast<IPluginUnits *>(plugin)) {
            x += units->unitChoices(horzDir);
            y += units->unitChoices(vertDir);
        }
    }
    dialog.addPage(tr("Import"), new WImportPage(x, y));
}

void TShellController::showSettings()
{
    WSettingsDialog dialog(fWindow);
    dialog.addPage(tr("General"), new WGeneralPage);
    dialog.addPage(tr("Plot"), new WPlotPage);
    addImportPage(dialog);
    dialog.addPage(tr("Export"), new WExportPage);
    auto *keyboard = new QWidget;
    auto *text = new QLabel(tr("Keys of all actions can be changed, written to a page and printed."));
    text->setWordWrap(true);
    auto *change = new QPushButton(tr("&Change Keys..."));
    change->setObjectName("changeKeysButton");
    auto *layout = new QVBoxLayout(keyboard);
    layout->addWidget(text);
    layout->addWidget(change, 0, Qt::AlignLeft);
    layout->addStretch();
    dialog.addPlainPage(tr("Keyboard"), keyboard);
    dialog.addPage(tr("Script"), new WScriptPage);
    connect(change, &QPushButton::clicked, this, &TShellController::showKeyboard);
    connect(&dialog, &WSettingsDialog::applied, this, &TShellController::settingsChanged);
    dialog.exec();
}

/// Fields made later take the default; those that are there are told.
void TShellController::takeNumberFormat()
{
    const QLocale locale = TNumberFormat::locale();
    QLocale::setDefault(locale);
    for (QWidget *top : QApplication::topLevelWidgets())
        top->setLocale(locale);
    fWindow->setLocale(locale);
}

void TShellController::settingsChanged()
{
    takeNumberFormat();
    if (fAutosave)
        fAutosave->takeMinutes();
    emit settingsTaken();
    for (QWidget *shown : fWindow->findChildren<QWidget *>())
        shown->update(); // tables and labels write numbers anew
    for (WDocumentView *view : fDocuments.views())
        view->updateHint();
    fActions.scheduleUpdate();
}

void TShellController::keepFitting(const QList<TImportedFile> &files) const
{
    if (!PlotHabits::newItemsKeepFitting())
        return;
    for (const TImportedFile &file : files) {
        for (ICanvasItem *item : file.fItems) {
            auto *spectrum = dynamic_cast<TCanvasSpectrum *>(item);
            if (spectrum && spectrum->activePlot())
                spectrum->activePlot()->properties().keepFitting = true;
        }
    }
    fActions.scheduleUpdate();
}

void TShellController::showGuide()
{
    if (!fGuide) {
        const QString folder = Utils::FS::sharedFolder("docs/guide");
        if (folder.isEmpty()) {
            Utils::Gui::message(fWindow, QMessageBox::Warning, tr("Guide"), tr("The guide is not installed."));
            return;
        }
        fGuide = new WGuide(folder, fWindow);
        fGuide->setAttribute(Qt::WA_DeleteOnClose);
        fGuide->showContents();
    }
    fGuide->show();
    fGuide->raise();
    fGuide->activateWindow();
}

void TShellController::openLogFolder()
{
    const QString folder = TLogFile::defaultFolder();
    if (QDir().mkpath(folder) && QDesktopServices::openUrl(QUrl::fromLocalFile(folder)))
        return;
    Utils::Gui::message(fWindow, QMessageBox::Warning, tr("Log Folder"),
                        tr("The folder %1 could not be shown, since no program for folders answered. Open it by hand; "
                           "the newest log is kelmora.log.")
                            .arg(QDir::toNativeSeparators(folder)));
}
