#pragma once

#include "ui/TPluginMouseModeHandler.h"

class TActionTable;
class TDocumentController;

/// The mouse modes of the window and their actions.
class TModeController : public QObject
{
    Q_OBJECT

public:
    TModeController(TActionTable &actions, TDocumentController &documents, QObject *parent);

    TPluginMouseModeHandler &modes() { return fModes; }

private:
    void addMode(TActionTable &actions, const QString &action, TMMAct *act);

    TDocumentController &fDocuments;
    TPluginMouseModeHandler fModes;
};
