#pragma once

#include <QString>
#include <QTextBrowser>
#include <QTimer>
#include <QUrl>
#include <QVector>

/// What scripts printed and what became of them, as lines of several kinds. Lines appear together some times a second,
/// so that a script that prints much is not held up.
class WScriptOutput : public QTextBrowser
{
    Q_OBJECT

public:
    enum TKind { cPrinted, cInput, cResult, cNote, cWarning, cError };
    static constexpr int cMostLines = 5000;
    static constexpr int cLongestLine = 20000; // letters

    explicit WScriptOutput(QWidget *parent = nullptr);

    /// Appends a line, or several; `link` stands before it and leads to `target`.
    void append(TKind kind, const QString &text, const QString &link = QString(), const QUrl &target = QUrl());
    /// Shows what waits at once.
    void flush();
    void clearAll();
    /// The settings may be others.
    void takeSettings();

signals:
    /// There are lines that nobody has seen yet.
    void appended();

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    struct TLine
    {
        TKind fKind;
        QString fText;
        QString fLink;
        QUrl fTarget;
    };

    void write(QTextCursor &cursor, const TLine &line);
    QColor colorOf(int kind) const;
    void recolor();

    QVector<TLine> fWaiting;
    int fLeftOut = 0;
    QTimer fTimer;
};
