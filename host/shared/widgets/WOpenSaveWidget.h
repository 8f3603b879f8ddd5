#pragma once

#include <QWidget>

class QLabel;
class QToolButton;

/// Buttons that open and save files of one kind, the recent ones, and the name of the file that is shown.
class WOpenSaveWidget : public QWidget
{
    Q_OBJECT

public:
    static constexpr int cMaxRecent = 10;

    /// `kind` names the files in dialogs, `suffix` is their ending without the dot.
    WOpenSaveWidget(const QString &openText, const QString &saveText, const QString &kind, const QString &suffix,
                    QWidget *parent = nullptr);

    /// What is shown is no longer what a file holds.
    void clearFileName();
    QString fileName() const { return fFileName; }
    /// The file is the one that is shown from now on, and the newest of the recent ones.
    void addRecentFile(const QString &path);
    /// The newest first.
    void setRecentFiles(const QStringList &paths);
    QStringList recentFiles() const { return fRecent; }
    /// A button at the right end.
    void addButton(QToolButton *button);

signals:
    void loadFile(const QString &path);
    void saveFile(const QString &path);
    void newRecentFile(const QString &path);

private:
    void askForOpen();
    void askForSave();
    void fillMenu();
    void showName();
    QString filter() const;
    QString folder() const;

    QString fKind;
    QString fSuffix;
    QString fFileName;
    QStringList fRecent;
    QToolButton *fOpen;
    QToolButton *fSave;
    QLabel *fName;
};
