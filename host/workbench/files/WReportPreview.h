#pragma once

#include <QDialog>

/// Shows a report, and lets it be copied in both forms, saved and printed.
class WReportPreview : public QDialog
{
    Q_OBJECT

public:
    WReportPreview(const QString &title, const QString &html, const QString &plain, QWidget *parent = nullptr);

    /// Puts both forms on the clipboard at once.
    static void copy(const QString &html, const QString &plain);
    /// Writes the form that the ending asks for: plain text for .txt, else html. False, with the reason, when it
    /// cannot be written.
    bool saveTo(const QString &path, QString *error) const;

private:
    void askForSave();
    void print();

    QString fHtml;
    QString fPlain;
};
