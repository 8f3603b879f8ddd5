#include "TAsciiTable.h"

#include "TAsciiColumns.h"
#include "TAsciiLines.h"
#include "TAsciiTokens.h"
#include "TEvenAxis.h"
#include "plugin/IConverter.h"

#include <QBuffer>
#include <algorithm>
#include <cmath>

namespace {

constexpr int cNumericLinesWanted = 10;

bool runsDown(const QVector<double> &x)
{
    return x.size() > 1 && x.at(0) > x.at(1);
}

/// The first row that breaks the order, -1 when none does. An ascending x is compared row by row, a descending one only
/// with its first value.
int firstOutOfOrder(const QVector<double> &x)
{
    const bool descending = runsDown(x);
    for (int i = 2; i < x.size(); ++i) {
        if (descending ? x.at(i) > x.at(0) : x.at(i - 1) > x.at(i))
            return i;
    }
    return -1;
}

/// The first value that is not above the one before, -1 when all are. A NaN among several is such a value.
int firstRepeated(const QVector<double> &x)
{
    for (int i = 1; i < x.size(); ++i) {
        if (!(x.at(i - 1) < x.at(i)))
            return i;
    }
    return -1;
}

void sortByX(QVector<double> *x, QVector<double> *y)
{
    QVector<QPair<double, double>> points(x->size());
    for (int i = 0; i < points.size(); ++i)
        points[i] = {x->at(i), y->at(i)};
    std::sort(points.begin(), points.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
    for (int i = 0; i < points.size(); ++i) {
        (*x)[i] = points.at(i).first;
        (*y)[i] = points.at(i).second;
    }
}

/// Turns a file around whose x runs down. The first y column follows its x values, the others only the direction.
void turnAround(QVector<QVector<double>> *columns)
{
    for (QVector<double> &column : *columns)
        std::reverse(column.begin(), column.end());
    QVector<double> &x = (*columns)[0];
    if (firstRepeated(x) >= 0) // it rises here and there
        sortByX(&x, &(*columns)[1]);
}

/// Brings the rows into ascending order of x; 52 when x has no order or repeats itself.
int orderRows(QVector<QVector<double>> *columns, QString *problem)
{
    QVector<double> &x = columns->first();
    const auto nan = std::find_if(x.cbegin(), x.cend(), [](double value) { return std::isnan(value); });
    int row = firstOutOfOrder(x);
    if (row < 0 && x.size() > 1 && nan != x.cend())
        row = int(nan - x.cbegin());
    if (row >= 0) {
        *problem = QStringLiteral("expected x in ascending or descending order, found %1 in row %2")
                       .arg(x.at(row))
                       .arg(row + 1);
        return cConverterContentUnusable;
    }
    if (runsDown(x))
        turnAround(columns);
    row = firstRepeated(x);
    if (row >= 0) {
        *problem = QStringLiteral("expected different x values, found %1 twice").arg(x.at(row));
        return cConverterContentUnusable;
    }
    return cConverterOk;
}

/// Puts the columns of an uneven axis onto the grid of its smallest step.
int makeEven(TAsciiTable *table, qint64 textSize, QString *problem)
{
    const TFinestGrid grid = finestGrid(table->fKeys);
    if (!TAsciiColumns::allowed(grid.fCount, table->fY.size(), textSize)) {
        *problem = QStringLiteral("expected a nearly even x axis, found a smallest step of %1 from %2 to %3")
                       .arg(grid.fStep)
                       .arg(table->fFirstX)
                       .arg(table->fLastX);
        return cConverterOutOfMemory;
    }
    const int count = int(grid.fCount);
    for (QVector<double> &y : table->fY)
        putOnGrid(table->fKeys, grid.fStep, count, &y);
    table->fPointCount = count;
    return cConverterOk;
}

} // namespace

int readAsciiTable(const QByteArray &text, TAsciiTable *table, QString *problem)
{
    QBuffer buffer;
    buffer.setData(text);
    buffer.open(QIODevice::ReadOnly);
    return readAsciiTable(&buffer, table, problem);
}

int readAsciiTable(QIODevice *device, TAsciiTable *table, QString *problem)
{
    QString unread;
    QString *told = problem ? problem : &unread;
    TAsciiColumns text;
    int code = text.read(device, told);
    if (code != cConverterOk)
        return code;
    QVector<QVector<double>> &columns = text.columns();

    TAsciiTable read;
    const int rowCount = columns.first().size();
    read.fPointCount = rowCount;
    if (columns.size() == 1) {
        read.fFirstX = 1.0;
        read.fLastX = rowCount;
        read.fY.swap(columns);
        *table = read;
        return cConverterOk;
    }

    code = orderRows(&columns, told);
    if (code != cConverterOk)
        return code;
    read.fKeys = columns.takeFirst();
    read.fY.swap(columns);
    read.fFirstX = read.fKeys.first();
    read.fLastX = read.fKeys.last();
    read.fIrregular = isUnevenAxis(read.fKeys);
    if (read.fIrregular)
        code = makeEven(&read, device->size(), told);
    if (code == cConverterOk)
        *table = read;
    return code;
}

bool looksLikeNumbers(const TAsciiLine &line)
{
    if (!line.fPlain)
        return false;
    const char *begin = line.fBegin;
    while (begin < line.fEnd && TAsciiTokens::isSeparator(*begin))
        ++begin;
    TAsciiTokens tokens(begin, line.fEnd, TAsciiLayout::cBlanks);
    double value = 0.0;
    bool isNumber = false;
    bool any = false;
    while (tokens.next<TAsciiLayout::cBlanks>(&value, &isNumber)) {
        if (!isNumber)
            return false;
        any = true;
    }
    return any;
}

bool looksLikeAsciiTable(const QByteArray &head)
{
    const char *begin = head.constData();
    const char *end = begin + head.size();
    TAsciiLines lines(TAsciiLines::textStart(begin, end), end);
    TAsciiLine line;
    int numeric = 0;
    while (lines.next(&line) && lines.hadLineEnd()) {
        numeric += looksLikeNumbers(line);
        if (numeric == cNumericLinesWanted)
            return true;
    }
    return false;
}
