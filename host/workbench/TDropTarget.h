#pragma once

#include <QObject>
#include <QStringList>

class QDropEvent;
class QLabel;
class QMimeData;
class QWidget;
class TDocumentController;
class TFileController;

/// Takes files that are dropped on the window. A label at the cursor says beforehand where they will go.
class TDropTarget : public QObject
{
    Q_OBJECT

public:
    static constexpr int cMaxFiles = 1000;

    TDropTarget(QWidget *window, TDocumentController &documents, TFileController &files);

    bool eventFilter(QObject *object, QEvent *event) override;
    /// The files of a drag; folders are walked, up to cMaxFiles and one more.
    static QStringList filesOf(const QMimeData &mime);
    /// What a drop of so many files would do; Ctrl held makes a stack of them.
    QString labelFor(int files, bool asStack = false) const;

private:
    bool accepts(const QMimeData *mime) const;
    static bool wantsStack(const QDropEvent &drop);
    void showLabel(const QPoint &place, bool asStack);

    QWidget *fWindow;
    TDocumentController &fDocuments;
    TFileController &fFiles;
    QLabel *fLabel;
    int fCount = 0;
};
