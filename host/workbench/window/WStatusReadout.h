#pragma once

#include <QObject>

class QLabel;
class QStatusBar;
class QToolButton;
class TDocumentController;
class WDocumentView;

/// The parts of the status bar: hint, readout, selected spectra, zoom of the page.
class WStatusReadout : public QObject
{
    Q_OBJECT

public:
    WStatusReadout(QStatusBar *bar, TDocumentController &documents);

    QString readout() const;
    QString hint() const;
    QString selection() const;

private:
    void watch(WDocumentView *view);
    void setHint(const QString &hint);
    void showHint();
    void showZoom();
    void showSelection();
    void selectAllSpectra();

    TDocumentController &fDocuments;
    QStatusBar *fBar;
    QString fHintText;
    QLabel *fHint;
    QLabel *fReadout;
    QToolButton *fSelection;
    QToolButton *fZoom;
};
