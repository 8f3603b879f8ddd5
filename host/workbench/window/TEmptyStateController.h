#pragma once

#include <QObject>
#include <QPointer>

class TDocumentController;
class TFileController;
class TKelmoraHost;
class WEmptyState;

/// Shows the empty state over the page while it is empty.
class TEmptyStateController : public QObject
{
    Q_OBJECT

public:
    TEmptyStateController(TKelmoraHost &host, TDocumentController &documents, TFileController &files, QObject *parent);

    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void follow();
    void place();

    TKelmoraHost &fHost;
    TDocumentController &fDocuments;
    TFileController &fFiles;
    QPointer<WEmptyState> fState; // in the viewport of the view that is shown
};
