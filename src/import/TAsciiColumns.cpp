#include "TAsciiColumns.h"

#include "ReadBounds.h"
#include "TAsciiBlocks.h"
#include "TAsciiLines.h"
#include "TAsciiTokens.h"
#include "plugin/IConverter.h"

#include <QIODevice>
#include <algorithm>
#include <limits>

namespace {

constexpr qint64 cTailBytes = 64 * 1024; // the end of a table is nearly always found in so much
constexpr qint64 cTailGrowth = 8;        // and otherwise in so many times more, again and again
constexpr qint64 cBytesPerColumn = 1024; // what a spectrum takes besides its values
constexpr int cGrowCells = 1 << 17;      // of all columns together
constexpr qint64 cMostRows = (std::numeric_limits<int>::max() - 64) / qint64(sizeof(double)); // a QVector's

/// Hands the first columnCount values of a line to cell(column, value). The count of values that the line adds to the
/// table; 0 drops it, since its first value is missing or one of them is no number.
template <TAsciiLayout::TMode cMode, typename TCell>
int walkTokens(TAsciiTokens *tokens, int tokenCount, int columnCount, TCell cell)
{
    for (int column = 0; column < tokenCount; ++column) {
        double value = 0.0;
        bool isNumber = false;
        if (!tokens->next<cMode>(&value, &isNumber))
            return column;
        if (!isNumber)
            return 0;
        if (column < columnCount)
            cell(column, value);
    }
    return tokenCount;
}

template <typename TCell>
int walkTokens(TAsciiTokens *tokens, const TAsciiLayout &layout, int columnCount, TCell cell)
{
    switch (layout.fMode) {
    case TAsciiLayout::cCommaPairs:
        return walkTokens<TAsciiLayout::cCommaPairs>(tokens, layout.fTokenCount, columnCount, cell);
    case TAsciiLayout::cCommas:
        return walkTokens<TAsciiLayout::cCommas>(tokens, layout.fTokenCount, columnCount, cell);
    case TAsciiLayout::cBlanks:
        return walkTokens<TAsciiLayout::cBlanks>(tokens, layout.fTokenCount, columnCount, cell);
    }
    return 0;
}

} // namespace

/// What the lines from the back tell: the layout, how many columns count, and where the last row ends.
struct TAsciiColumns::TTableEnd
{
    TAsciiLayout fLayout;
    int fColumnCount = 0; // 0: there is no row
    qint64 fPosition = 0;
    int fLineSize = 1; // of the last row, with its line end
};

bool TAsciiColumns::allowed(double rowCount, int columnCount, qint64 textSize)
{
    const double bytes = (rowCount * double(sizeof(double)) + double(cBytesPerColumn)) * columnCount;
    return rowCount <= double(cMostRows) && !exceedsReadBound(bytes, textSize);
}

/// Looks at the last lines only, and at more of them as long as they hold no row.
TAsciiColumns::TTableEnd TAsciiColumns::findTableEnd(QIODevice *device)
{
    const qint64 size = device->size();
    for (qint64 tail = cTailBytes;; tail *= cTailGrowth) {
        const qint64 start = std::max<qint64>(0, size - tail);
        const QByteArray bytes = device->seek(start) ? device->read(size - start) : QByteArray();
        const char *begin = bytes.constData();
        const char *text = start == 0 ? TAsciiLines::textStart(begin, begin + bytes.size()) : begin;
        TTableEnd result;
        bool layoutKnown = false;
        TAsciiLines lines(text, begin + bytes.size());
        TAsciiLine line;
        while (lines.previous(&line) && (start == 0 || line.fBegin > text)) { // the first one may be cut
            result.fPosition = start + (line.fEnd - begin);
            result.fLineSize = line.size() + 1;
            if (!TAsciiLines::clean(&line))
                continue;
            if (!layoutKnown) // the last line that may hold numbers rules, even if it then turns out not to
                result.fLayout = TAsciiLayout::ofLine(line);
            layoutKnown = true;
            TAsciiTokens tokens(line.fBegin, line.fEnd, result.fLayout.fMode);
            result.fColumnCount = walkTokens(&tokens, result.fLayout, 0, [](int, double) {});
            if (result.fColumnCount > 0)
                return result;
        }
        if (start == 0)
            return result;
    }
}

int TAsciiColumns::read(QIODevice *device, QString *problem)
{
    const qint64 size = device->size();
    const TTableEnd tableEnd = findTableEnd(device);
    if (tableEnd.fColumnCount == 0) {
        *problem = QStringLiteral("expected lines of numbers, found none in %1 bytes").arg(size);
        return cConverterContentUnusable;
    }
    int code = cConverterOutOfMemory;
    if (allowed(1.0, tableEnd.fColumnCount, size)) {
        prepare(tableEnd);
        code = readRows(device, tableEnd);
    }
    if (code != cConverterOk) {
        *problem =
            QStringLiteral(
                "expected at most 64 times the memory of %1 bytes of text, found more than %2 rows of %3 columns")
                .arg(size)
                .arg(fRowCount)
                .arg(tableEnd.fColumnCount);
        fColumns.clear();
        return code;
    }
    finish();
    // a text that shrank while it was read may have lost its last row
    return fRowCount > 0 ? cConverterOk : cConverterContentUnusable;
}

/// Claims addresses for as many rows as there are if all lines are like the last one. The memory comes with the rows;
/// columns that had to grow later would be copied again and again.
void TAsciiColumns::prepare(const TTableEnd &tableEnd)
{
    fColumns.resize(tableEnd.fColumnCount);
    fCells.resize(tableEnd.fColumnCount);
    const qint64 guess = tableEnd.fPosition / tableEnd.fLineSize;
    for (QVector<double> &column : fColumns)
        column.reserve(int(std::min(cMostRows, guess + guess / 4 + 1)));
}

int TAsciiColumns::readRows(QIODevice *device, const TTableEnd &tableEnd)
{
    const int columnCount = tableEnd.fColumnCount;
    const qint64 size = device->size();
    bool atTextStart = true;
    TAsciiBlocks blocks(device, 0, tableEnd.fPosition);
    while (blocks.next()) {
        TAsciiLines lines(atTextStart ? TAsciiLines::textStart(blocks.begin(), blocks.end()) : blocks.begin(),
                          blocks.end());
        atTextStart = false;
        while (lines.position() < lines.end()) {
            if (fRowCount == fRoom) {
                if (!allowed(fRowCount + 1.0, columnCount, size))
                    return cConverterOutOfMemory;
                setRoom(int(std::min<qint64>(cMostRows, fRoom + std::max(1, cGrowCells / columnCount))));
            }
            const int count = readRow(&lines, tableEnd);
            if (count == 0)
                continue;
            for (int column = count; column < columnCount; ++column)
                fCells.at(column)[fRowCount] = 0.0; // a dropped line may have left something here
            ++fRowCount;
        }
    }
    return cConverterOk;
}

/// Reads the next line into the row behind the last one. The count of its values; 0 when it is no row.
int TAsciiColumns::readRow(TAsciiLines *lines, const TTableEnd &tableEnd)
{
    double *const *cells = fCells.constData();
    const int row = fRowCount;
    const auto cell = [cells, row](int column, double value) { cells[column][row] = value; };

    // nearly every line is one of plain numbers, and then one walk is enough
    const char *begin = TAsciiTokens::skipBlanks(lines->position(), lines->end());
    TAsciiTokens plain(begin, lines->end(), tableEnd.fLayout.fMode);
    const int plainCount = walkTokens(&plain, tableEnd.fLayout, tableEnd.fColumnCount, cell);
    const char *lineEnd = plainCount > 0 ? plain.endOfPlainLine() : nullptr;
    if (lineEnd && lineEnd - begin >= TAsciiLines::cShortestLine) {
        lines->passLine(lineEnd);
        return plainCount;
    }

    TAsciiLine line;
    if (!lines->next(&line) || !TAsciiLines::clean(&line))
        return 0;
    TAsciiTokens tokens(line.fBegin, line.fEnd, tableEnd.fLayout.fMode);
    return walkTokens(&tokens, tableEnd.fLayout, tableEnd.fColumnCount, cell);
}

void TAsciiColumns::setRoom(int rows)
{
    for (int column = 0; column < fColumns.size(); ++column) {
        fColumns[column].resize(rows);
        fCells[column] = fColumns[column].data();
    }
    fRoom = rows;
}

/// Gives back what no row came for, where that is more than addresses.
void TAsciiColumns::finish()
{
    for (QVector<double> &column : fColumns) {
        column.resize(fRowCount);
        if (column.capacity() / 2 > fRowCount)
            column.squeeze();
    }
}
