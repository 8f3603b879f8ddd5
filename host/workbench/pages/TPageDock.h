#pragma once

#include <QObject>

class QMenu;
class QPoint;
class TActionTable;
class TCommand;
class TDocumentController;
class TStackMaker;
class WPageNavigator;

/// What the dock of the pages does to the document that is shown; each change is one step.
class TPageDock : public QObject
{
    Q_OBJECT

public:
    /// Goes with the dock.
    TPageDock(WPageNavigator &dock, TActionTable &actions, TDocumentController &documents, TStackMaker &stacks);

    void duplicateChosen();
    void deleteChosen();

private:
    void showMenu(const QPoint &globalPlace);
    void addStacking(QMenu *menu);
    void push(TCommand *command);

    WPageNavigator &fDock;
    TActionTable &fActions;
    TDocumentController &fDocuments;
    TStackMaker &fStacks;
};
