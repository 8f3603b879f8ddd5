#pragma once

#include <QByteArray>
#include <QStringList>
#include <QVector>

class QMimeData;

/// Rows of a table on the screen as text for other programs, with one header line.
class TRowTable
{
public:
    enum TForm { cTabs, cCsv, cHtml };

    void setHeader(const QStringList &titles) { fHeader = titles; }
    /// A row has as many cells as the header.
    void addRow(const QStringList &cells) { fRows.append(cells); }
    bool isEmpty() const { return fRows.isEmpty(); }

    /// UTF-8. A text that a spreadsheet would run as a formula begins with an apostrophe. Tabs and line ends inside of
    /// cells become spaces where they would tear the table apart; csv quotes them.
    QByteArray bytes(TForm form) const;
    /// Text with tabs and HTML at once; the caller owns it.
    QMimeData *mimeData() const;
    /// The form of a file name by its ending: .csv, .html or .htm; tabs for any other.
    static TForm formOf(const QString &path);

private:
    QString line(const QStringList &cells, TForm form) const;

    QStringList fHeader;
    QVector<QStringList> fRows;
};
