#include "TSersbtFile.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

constexpr char cSweep[] = "BeginLFASweepPos";
constexpr char cGain[] = "BeginLFAADCGain";
constexpr char cLfa[] = "BeginLFASpectralData";
constexpr char cNonLfa[] = "BeginNonLFASpectralData";
constexpr char cSourceOn[] = "BeginNonLFASourceOn";
constexpr char cLfaEnd[] = "EndLFASpectralData";
constexpr char cNonLfaEnd[] = "EndNonLFASpectralData";

bool isBlank(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

bool isSeparator(char c)
{
    return isBlank(c) || c == '=' || c == ',' || c == ';' || c == ':';
}

/// The parts between characters for which `parts` is true, without empty ones.
template <typename TParts>
QList<QByteArray> split(const QByteArray &text, TParts parts)
{
    QList<QByteArray> tokens;
    int begin = 0;
    for (int i = 0; i <= text.size(); ++i) {
        if (i < text.size() && !parts(text.at(i)))
            continue;
        if (i > begin)
            tokens.append(text.mid(begin, i - begin));
        begin = i + 1;
    }
    return tokens;
}

bool isDataRow(const QByteArray &line)
{
    const char c = line.isEmpty() ? 'x' : line.at(0);
    return (c >= '0' && c <= '9') || c == '-' || isBlank(c);
}

bool isAllBlank(const QByteArray &line)
{
    return std::all_of(line.begin(), line.end(), isBlank);
}

QByteArray firstToken(const QByteArray &line)
{
    return split(line, isSeparator).value(0);
}

bool beginsBlock(const QByteArray &name)
{
    return name == cSweep || name == cGain || name == cLfa || name == cNonLfa || name == cSourceOn;
}

QString quoted(const QByteArray &text)
{
    constexpr int cShown = 40;
    return '"' + QString::fromUtf8(text.left(cShown)) + '"';
}

} // namespace

QString TSersbtFile::refusal(const QByteArray &head)
{
    // the first two tokens of the text, whatever its lines; an empty first one stands before a separator
    int end = 0;
    while (end < head.size() && !isSeparator(head.at(end)))
        ++end;
    if (head.left(end) != "FileVersion")
        return QStringLiteral("expected \"FileVersion\" in line 1, found %1").arg(quoted(head.left(end)));
    int begin = end;
    while (begin < head.size() && isSeparator(head.at(begin)))
        ++begin;
    end = begin;
    while (end < head.size() && !isSeparator(head.at(end)))
        ++end;
    bool isNumber = false;
    const double version = head.mid(begin, end - begin).toDouble(&isNumber);
    if (!isNumber || !(version <= cHighestVersion))
        return QStringLiteral("expected a file version not above %1 in line 1, found %2")
            .arg(cHighestVersion)
            .arg(quoted(head.mid(begin, end - begin)));
    return QString();
}

bool TSersbtFile::fail(int line, const QString &what)
{
    fProblem = line > 0 ? QStringLiteral("line %1: %2").arg(line).arg(what) : what;
    return false;
}

bool TSersbtFile::parse(const QByteArray &text)
{
    *this = TSersbtFile();
    QByteArray lines = text;
    lines.replace("\r\n", "\n").replace('\r', '\n');
    fLines = lines.split('\n');
    for (int i = 0; i < fLines.size(); ++i) {
        if (!isDataRow(fLines.at(i)) && !readHeaderLine(&i))
            return false;
    }
    fLines.clear();
    return checkGrids();
}

bool TSersbtFile::isRepeated(int firstLine, int line)
{
    if (firstLine > 0)
        fRepeatedLines.append(line);
    return firstLine > 0;
}

/// Reads the line at the index, and leaves the index at the last line that belongs to it. The second block of a name is
/// passed over.
bool TSersbtFile::readHeaderLine(int *index)
{
    const QList<QByteArray> tokens = split(fLines.at(*index), isSeparator);
    if (tokens.size() < 2)
        return true;
    const QByteArray &name = tokens.first();
    for (TSersbtList *list : {&fSweep, &fGain, &fSourceOn}) {
        const char *listName = list == &fSweep ? cSweep : list == &fGain ? cGain : cSourceOn;
        if (name == listName)
            return isRepeated(list->fLine, *index + 1) || readList(tokens, list == &fSweep ? 2 : 1, index, list);
    }
    if (name == cLfa)
        return isRepeated(fLfa.fLine, *index + 1) || beginBlock(tokens, index, &fLfa, cLfaEnd);
    if (name == cNonLfa)
        return isRepeated(fNonLfa.fLine, *index + 1) || beginBlock(tokens, index, &fNonLfa, cNonLfaEnd);
    if (name != cLfaEnd && name != cNonLfaEnd)
        fParameters.insert(name, tokens.last());
    return true;
}

bool TSersbtFile::readList(const QList<QByteArray> &tokens, int lines, int *index, TSersbtList *list)
{
    constexpr int cTokens = 3;
    if (tokens.size() < cTokens)
        return fail(*index + 1, QStringLiteral("expected %1 with two counts").arg(quoted(tokens.first())));
    list->fName = tokens.first();
    list->fLine = *index + 1;
    list->fGridFirst = tokens.at(1).toInt();
    list->fGridSecond = tokens.at(2).toInt();
    if (list->fGridFirst <= 0 || list->fGridSecond <= 0)
        return fail(list->fLine, QStringLiteral("expected counts above 0 for %1").arg(quoted(list->fName)));
    return readListLine(index, list, &list->fFirst) && (lines < 2 || readListLine(index, list, &list->fSecond));
}

bool TSersbtFile::readListLine(int *index, TSersbtList *list, QVector<int> *values)
{
    ++*index;
    const QList<QByteArray> tokens = split(fLines.value(*index), isSeparator);
    const qint64 announced = qint64(list->fGridFirst) * list->fGridSecond;
    if (tokens.size() != announced)
        return fail(*index + 1, QStringLiteral("expected %1 integers of %2, found %3")
                                    .arg(announced)
                                    .arg(quoted(list->fName))
                                    .arg(tokens.size()));
    for (const QByteArray &token : tokens) {
        bool isInteger = false;
        values->append(token.toInt(&isInteger));
        if (!isInteger)
            return fail(*index + 1, QStringLiteral("expected an integer, found %1").arg(quoted(token)));
    }
    return true;
}

/// Reads a block of spectra; its rows end with its last line, with the next block or with the file.
bool TSersbtFile::beginBlock(const QList<QByteArray> &tokens, int *index, TSersbtBlock *block,
                             const QByteArray &endName)
{
    constexpr int cTokens = 4;
    if (tokens.size() < cTokens)
        return fail(*index + 1, QStringLiteral("expected %1 with three counts").arg(quoted(tokens.first())));
    block->fName = tokens.first();
    block->fLine = *index + 1;
    block->fPointCount = tokens.at(1).toInt();
    block->fGridFirst = tokens.at(2).toInt();
    block->fGridSecond = tokens.at(3).toInt();
    if (block->fPointCount <= 0 || block->fGridFirst <= 0 || block->fGridSecond <= 0)
        return fail(block->fLine, QStringLiteral("expected counts above 0 for %1").arg(quoted(block->fName)));
    int end = *index + 1;
    while (end < fLines.size()) {
        const QByteArray name = isDataRow(fLines.at(end)) ? QByteArray() : firstToken(fLines.at(end));
        if (name == endName || beginsBlock(name))
            break;
        ++end;
    }
    return readRows(*index + 1, end, block);
}

bool TSersbtFile::readRows(int first, int end, TSersbtBlock *block)
{
    int last = first;
    for (int i = first; i < end; ++i) {
        if (!isDataRow(fLines.at(i)) || isAllBlank(fLines.at(i)))
            continue;
        if (!readRow(i, block))
            return false;
        last = i;
    }
    if (block->fRowCount < block->fPointCount)
        return fail(last + 1, QStringLiteral("expected %1 rows of %2, found %3")
                                  .arg(block->fPointCount)
                                  .arg(quoted(block->fName))
                                  .arg(block->fRowCount));
    sortRows(block);
    return true;
}

bool TSersbtFile::readRow(int index, TSersbtBlock *block)
{
    const QList<QByteArray> tokens = split(fLines.at(index), isBlank);
    const qint64 wanted = block->spectrumCount() + 1;
    if (tokens.size() < wanted || (block->fRowCount == 0 && tokens.size() != wanted))
        return fail(index + 1, QStringLiteral("expected x and %1 intensities of %2, found %3 numbers")
                                   .arg(block->spectrumCount())
                                   .arg(quoted(block->fName))
                                   .arg(tokens.size()));
    if (block->fY.isEmpty())
        block->fY.resize(int(block->spectrumCount()));
    for (int i = 0; i < wanted; ++i) {
        bool isNumber = false;
        const double value = tokens.at(i).toDouble(&isNumber);
        if (!isNumber || (i == 0 && std::isnan(value)))
            return fail(index + 1, QStringLiteral("expected a number, found %1").arg(quoted(tokens.at(i))));
        (i == 0 ? block->fX : block->fY[i - 1]).append(value);
    }
    ++block->fRowCount;
    return true;
}

/// Brings the rows into ascending order of x; of rows with the same x the last counts, and of more rows than announced
/// those of the lowest x.
void TSersbtFile::sortRows(TSersbtBlock *block) const
{
    const QVector<double> x = block->fX;
    QVector<int> order(x.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&x](int a, int b) { return x.at(a) < x.at(b); });
    QVector<int> kept;
    for (int i = 0; i < order.size(); ++i) {
        if (i + 1 == order.size() || x.at(order.at(i)) < x.at(order.at(i + 1)))
            kept.append(order.at(i));
    }
    if (kept.size() > block->fPointCount)
        kept.resize(block->fPointCount);
    const auto pick = [&kept](QVector<double> *values) {
        QVector<double> picked;
        picked.reserve(kept.size());
        for (const int row : kept)
            picked.append(values->at(row));
        *values = picked;
    };
    pick(&block->fX);
    for (QVector<double> &y : block->fY)
        pick(&y);
}

bool TSersbtFile::checkGrid(const TSersbtList &list, const QByteArray &otherName, int first, int second, bool there)
{
    if (there && list.fGridFirst == first && list.fGridSecond == second)
        return true;
    const QString found = there ? QStringLiteral("%1 x %2").arg(first).arg(second) : QStringLiteral("none");
    return fail(list.fLine, QStringLiteral("expected %1 of %2 x %3 as for %4, found %5")
                                .arg(quoted(otherName))
                                .arg(list.fGridFirst)
                                .arg(list.fGridSecond)
                                .arg(quoted(list.fName), found));
}

/// What belongs together has the same grid, in whatever order it stands.
bool TSersbtFile::checkGrids()
{
    const bool hasSweep = fSweep.fLine > 0;
    if (fGain.fLine > 0 && !checkGrid(fGain, cSweep, fSweep.fGridFirst, fSweep.fGridSecond, hasSweep))
        return false;
    if (fSourceOn.fLine > 0 &&
        !checkGrid(fSourceOn, cNonLfa, fNonLfa.fGridFirst, fNonLfa.fGridSecond, fNonLfa.fLine > 0))
        return false;
    if (fLfa.fLine == 0)
        return true;
    TSersbtList grid;
    grid.fName = fLfa.fName;
    grid.fLine = fLfa.fLine;
    grid.fGridFirst = fLfa.fGridFirst;
    grid.fGridSecond = fLfa.fGridSecond;
    return checkGrid(grid, cSweep, fSweep.fGridFirst, fSweep.fGridSecond, hasSweep);
}
