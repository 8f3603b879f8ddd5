#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

class QIODevice;
struct TAsciiLine;

/// A table of numbers as spectra want it: one ascending x axis, made even where it was not, and a y column per
/// spectrum.
struct TAsciiTable
{
    QVector<double> fKeys; // the ascending x values of the file; empty for a single column, whose rows count 1, 2 ..
    QVector<QVector<double>> fY; // in the order of the columns, fPointCount values each
    int fPointCount = 0;
    double fFirstX = 0.0; // lowest and highest x of the file, also for resampled columns
    double fLastX = 0.0;
    bool fIrregular = false; // the columns were put onto an even grid
};

/// Reads the text of a table: a column of y values, or an x column and any number of y columns.
///
/// The text is UTF-8 with any line ends. Columns are parted by blanks, tabulators, commas, semicolons, colons or equal
/// signs; decimal commas are recognised by the absence of points in the last line. Lines that hold anything but numbers
/// are passed over, short lines count with zeros. An x that is neither ascending nor descending or comes twice is
/// refused, a descending one reversed. An axis whose mean lies more than 1 % off its middle is uneven: its columns are
/// resampled with the smallest step, and the grid ends one step before fLastX.
///
/// 0, or 52 for a text without a usable table, or 0x80000002 where zeros of short lines or the even grid would take
/// more than 64 MiB and more than 64 times the text. Table is complete on 0 and untouched otherwise; problem, if given,
/// then tells what was found where. The device is read from its start and must allow random access. Time is linear in
/// the text and the result; besides the result it takes little more memory than the longest line.
int readAsciiTable(QIODevice *device, TAsciiTable *table, QString *problem = nullptr);
/// The same for a text in memory.
int readAsciiTable(const QByteArray &text, TAsciiTable *table, QString *problem = nullptr);

/// Whether a line holds numbers and nothing else.
bool looksLikeNumbers(const TAsciiLine &line);
/// Whether a text that begins so looks like a table of numbers: at least ten of its lines, the last one not counted,
/// hold numbers only. The rest may be anything.
bool looksLikeAsciiTable(const QByteArray &head);
