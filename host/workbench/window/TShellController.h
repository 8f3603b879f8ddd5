#pragma once

#include <QObject>
#include <QPointer>

class QMainWindow;
class TActionTable;
class TAutosave;
class TDocumentController;
class TFileController;
class TKelmoraHost;
class TShortcuts;
class WCommandPalette;
class WGuide;
class WSettingsDialog;
struct TImportedFile;

/// What belongs to the program as a whole: command palette, keys, settings, log.
class TShellController : public QObject
{
    Q_OBJECT

public:
    /// What is named here lives as long.
    TShellController(TKelmoraHost &host, TActionTable &actions, TDocumentController &documents, TFileController &files,
                     QMainWindow *window);

    /// Once all actions stand in their menus: they get the keys of the settings.
    void takeMenus();
    void setAutosave(TAutosave *autosave) { fAutosave = autosave; }
    TShortcuts &shortcuts() { return *fShortcuts; }
    WCommandPalette &palette() { return *fPalette; }
    void showSettings();
    void showKeyboard();
    /// Opens the guide at its contents, or brings it to the front as it stands.
    void showGuide();

signals:
    /// Settings were changed; what keeps some of them reads them anew.
    void settingsTaken();

private:
    void openLogFolder();
    void settingsChanged();
    void takeNumberFormat();
    void addImportPage(WSettingsDialog &dialog) const;
    void keepFitting(const QList<TImportedFile> &files) const;

    TKelmoraHost &fHost;
    TActionTable &fActions;
    TDocumentController &fDocuments;
    TFileController &fFiles;
    QMainWindow *fWindow;
    TAutosave *fAutosave = nullptr;
    TShortcuts *fShortcuts;
    WCommandPalette *fPalette;
    QPointer<WGuide> fGuide;
};
