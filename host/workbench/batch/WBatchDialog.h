#pragma once

#include "TBatchRunner.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

/// Processes many files as the command line does, and shows the command that does the same. The window can be used
/// meanwhile.
class WBatchDialog : public QDialog
{
    Q_OBJECT

public:
    enum TState { cWaiting, cDone, cFailed };

    /// `patterns` are the names of files that can be read, as "*.csv".
    explicit WBatchDialog(const QStringList &patterns, QWidget *parent = nullptr);

    /// Adds files; of folders all that have a name of the patterns. Those that are there already stay once.
    void addPaths(const QStringList &paths);
    /// What the controls say.
    TBatchRequest request() const;
    TState stateOf(int row) const;
    void reject() override;

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    QWidget *makeFiles();
    QWidget *makeOptions();
    QWidget *makeCommand();
    QWidget *makePlace(QLineEdit *line, const char *name, const QString &what, const std::function<void()> &browse);
    void connectAll();
    void askForFiles();
    void askForFolder();
    void askForTemplate();
    void askForOutput();
    void removeRows();
    void run();
    void runEnded(const QString &error);
    void setRow(int row, TState state, const QString &note = QString());
    void updateControls();
    void tell(const QString &text, bool isError);
    void copyCommand() const;
    void restore();
    void remember() const;

    QStringList fPatterns;
    TBatchRunner fRunner;
    QTreeWidget *fFiles;
    QPushButton *fRemove;
    QLineEdit *fTemplate;
    QLineEdit *fFolder;
    QComboBox *fForm;
    QComboBox *fPicture;
    QCheckBox *fAsStack;
    QCheckBox *fReplaces;
    QPlainTextEdit *fCommand;
    QProgressBar *fProgress;
    QLabel *fNote;
    QPushButton *fRun;
    QPushButton *fClose;
    QWidget *fInput; // all that cannot be changed while files are worked on
    bool fIsCancelled = false;
};
