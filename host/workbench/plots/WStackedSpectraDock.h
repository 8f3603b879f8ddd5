#pragma once

#include "TStackEdits.h"
#include "widgets/WPluginDockWidget.h"

class QLabel;
class TDocumentController;
class WStackedItemsTable;

/// The dock with the table of the spectra of the active item.
class WStackedSpectraDock : public WPluginDockWidget
{
    Q_OBJECT

public:
    WStackedSpectraDock(TKelmoraHost &host, TDocumentController &documents, QWidget *parent = nullptr);

    WStackedItemsTable *table() const { return fTable; }
    void refresh() override;

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void showHeader();
    void placeOnPage();

    TDocumentController &fDocuments;
    TStackEdits fEdits;
    QLabel *fHeader;
    QLabel *fNothing;
    WStackedItemsTable *fTable;
};
