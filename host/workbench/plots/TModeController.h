#pragma once

#include "ui/TPluginMouseModeHandler.h"

class TActionTable;
class TDocumentController;
class TKelmoraHost;

/// The mouse modes of the window and their actions.
class TModeController : public QObject
{
    Q_OBJECT

public:
    TModeController(TKelmoraHost &host, TActionTable &actions, TDocumentController &documents, QObject *parent);

    TPluginMouseModeHandler &modes() { return fModes; }
    /// The mode that is on, the window's or a plug-in's; the null id is none.
    QUuid mode() const;
    /// Leaves the mode that is on and enters another one, of the window or of a plug-in. The same again leaves it.
    void setMode(const QUuid &mode);

private:
    void addMode(TActionTable &actions, const QString &action, TMMAct *act);

    void leavePluginModes();
    bool filterEvent(QEvent *event) const;

    TKelmoraHost &fHost;
    TDocumentController &fDocuments;
    TPluginMouseModeHandler fModes;
};
