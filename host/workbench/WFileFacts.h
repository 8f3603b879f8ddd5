#pragma once

#include <QFrame>
#include <QTimer>

class QFormLayout;
class QLabel;
class TImportDriver;

/// What a file is, told beside the list of files of a dialog. Read a moment after the choice, and from the header only,
/// so that walking through a list is never held up.
class WFileFacts : public QFrame
{
    Q_OBJECT

public:
    static constexpr int cDelay = 150;                    // ms
    static constexpr qint64 cMaxText = 4LL * 1024 * 1024; // bytes; a text has no header that could be read alone

    /// `driver` is not owned and lives longer.
    explicit WFileFacts(const TImportDriver &driver, QWidget *parent = nullptr);

    /// Tells of that file soon; folders and missing files give nothing.
    void showFile(const QString &path);
    /// The text beside a label; empty when it is not told.
    QString fact(const QString &label) const;

private:
    void read();
    void addFact(const QString &label, const QString &text);
    void addHeader(const QString &path);

    const TImportDriver &fDriver;
    QString fPath;
    QTimer fTimer;
    QLabel *fName;
    QFormLayout *fFacts;
};
