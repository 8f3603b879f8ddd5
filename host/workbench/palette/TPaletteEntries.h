#pragma once

#include <QString>
#include <QVector>
#include <functional>

class QMenuBar;
class TActionTable;
class TDocumentController;
class TFileController;
class TKelmoraHost;

/// Something that can be run by its name.
struct TPaletteEntry
{
    QString fId; // under which it is remembered; empty: it is not
    QString fTitle;
    QString fPath; // "View > Theme"
    QString fShortcut;
    QString fReason; // why it cannot be run
    bool fIsEnabled = true;
    bool fIsCheckable = false;
    bool fIsChecked = false;
    std::function<void()> fRun;
};

/// All that the command palette finds: actions and docks, sample spectra, files and plug-ins' templates opened last,
/// pages of the open documents.
QVector<TPaletteEntry> paletteEntries(const QMenuBar &bar, TActionTable &table, TDocumentController &documents,
                                      TFileController &files, const TKelmoraHost &host);
