#pragma once

#include <QObject>
#include <QPageLayout>

class QPrinter;
class QWidget;
class TActionTable;
class TDocument;
class TDocumentController;

/// Prints the pages of the document at their true size; a page that the paper cannot hold is scaled to fit it.
class TPrintController : public QObject
{
    Q_OBJECT

public:
    TPrintController(TActionTable &actions, TDocumentController &documents, QWidget *window);

    /// Draws the pages that the printer's range takes in, each on a sheet of its own and in its middle.
    /// False, with a message, when the printer does not take the job or its file cannot be written.
    bool print(QPrinter *printer) const;
    /// By how much the page with that number, from 0, is scaled on the printer's paper: 1 at true size.
    double scale(const QPrinter &printer, int page) const;

    /// The paper from now on, in later runs as well.
    void setPaper(const QPageLayout &paper);
    /// Gives a printer the paper of the page set-up, or of the document's first page without one.
    void prepare(QPrinter *printer) const;

private:
    void pageSetup();
    void preview();
    void printDialog();

    TDocumentController &fDocuments;
    QWidget *fWindow;
    QPageLayout fPaper; // as set up; invalid before
};
