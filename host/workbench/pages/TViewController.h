#pragma once

#include <QObject>

class TActionTable;
class TDocumentController;

/// The actions that change how a page is looked at.
class TViewController : public QObject
{
    Q_OBJECT

public:
    TViewController(TActionTable &actions, TDocumentController &documents, QObject *parent);
};
