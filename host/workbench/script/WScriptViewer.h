#pragma once

#include <QDialog>

class QPlainTextEdit;

/// Shows a script with a line marked. It is changed in the editor of the system.
class WScriptViewer : public QDialog
{
    Q_OBJECT

public:
    explicit WScriptViewer(QWidget *parent = nullptr);

    /// Reads a file and marks a line, from 1; false with the reason when it cannot be read.
    bool show(const QString &path, int line, QString *error);
    QPlainTextEdit *text() const { return fText; }

private:
    void openEditor();

    QPlainTextEdit *fText;
    QString fPath;
};
