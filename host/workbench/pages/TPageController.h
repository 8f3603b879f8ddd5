#pragma once

#include <QObject>
#include <QSizeF>

class TActionTable;
class TDocumentController;

/// The actions of the page menu.
class TPageController : public QObject
{
    Q_OBJECT

public:
    TPageController(TActionTable &actions, TDocumentController &documents, QObject *parent);

    /// Shows the page that many places further on; past the ends nothing happens.
    void step(int places);

private:
    bool hasStep(int places) const;
    void addSizes(TActionTable &actions);

    TDocumentController &fDocuments;
};
