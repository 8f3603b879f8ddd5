#pragma once

#include <QString>
#include <QVector>

/// One row of what a reader sees inside a file, with the rows below it. Readers build it for files that they refuse as
/// well, as far as they can follow them.
struct TFileNode
{
    enum TState {
        cUsed,    // the import uses it
        cSkipped, // the import passes it over; the note says why
        cBroken   // not as it should be; the note says what was expected
    };
    static constexpr int cMaxShown =
        100; // rows of equal kind that a reader lists before it says how many more there are

    QString fName;       // what it is: "header", "subfile 3", "##XUNITS"
    QString fValue;      // what stands there
    QString fNote;       // what it means, or why it is skipped or broken
    qint64 fOffset = -1; // first byte in the file; -1 where it has no place of its own
    qint64 fSize = -1;   // bytes; -1 where there is no telling
    int fLine = 0;       // line of a text file, from 1; 0 for none
    TState fState = cUsed;
    QVector<TFileNode> fRows;

    /// Whether the reader saw nothing of its format.
    bool isEmpty() const { return fName.isEmpty() && fRows.isEmpty(); }

    /// Appends a row and returns it; the reference holds until the next row is appended.
    TFileNode &add(const QString &name, const QString &value = QString(), const QString &note = QString());
    /// The same for a row with a place in the file.
    TFileNode &addAt(qint64 offset, qint64 size, const QString &name, const QString &value = QString(),
                     const QString &note = QString());
    /// Appends a row of something passed over or broken.
    TFileNode &addSkipped(const QString &name, const QString &why);
    TFileNode &addBroken(const QString &name, const QString &expected);

    /// The tree as text: a row a line, two blanks deeper for each level, with "@offset +size" or "line n" in front.
    QString text() const;
};
