#pragma once

#include <QFrame>
#include <QTimer>

class QFormLayout;
class QPixmap;
class QLabel;
class TImportDriver;

/// What a file is, told beside the list of files of a dialog. Read a moment after the choice, and from the header only,
/// so that walking through a list is never held up; a file that is small enough is drawn a moment later still.
class WFileFacts : public QFrame
{
    Q_OBJECT

public:
    static constexpr int cDelay = 150;                    // ms
    static constexpr int cPictureDelay = 100;             // ms behind the facts
    static constexpr qint64 cMaxDrawn = 1024 * 1024;      // bytes; read within some 50 ms
    static constexpr qint64 cMaxText = 4LL * 1024 * 1024; // bytes; a text has no header that could be read alone

    /// `driver` is not owned and lives longer.
    explicit WFileFacts(const TImportDriver &driver, QWidget *parent = nullptr);

    /// Tells of that file soon; folders and missing files give nothing.
    void showFile(const QString &path);
    /// The text beside a label; empty when it is not told.
    QString fact(const QString &label) const;
    /// The drawn file; null while there is none.
    QPixmap picture() const;

private:
    void read();
    void addFact(const QString &label, const QString &text);
    void addHeader(const QString &path);
    void drawPicture();

    const TImportDriver &fDriver;
    QString fPath;
    QTimer fTimer;
    QTimer fPictureTimer;
    QLabel *fPicture;
    QLabel *fName;
    QFormLayout *fFacts;
};
