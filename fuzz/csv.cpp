// The text table reader: no crash, no unbounded memory, the same as the plain rules on strings, and what it read comes
// back from what the writer makes of it.
#include "TAsciiInspection.h"
#include "TAsciiJudge.h"
#include "TAsciiTable.h"
#include "TCsvWriter.h"

#include <QBuffer>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace {

constexpr int cJudgedBytes = 4096;   // the judge is slow
constexpr int cJudgedPoints = 50000; // and quadratic

void require(bool holds)
{
    if (!holds)
        std::abort();
}

bool sameBits(const QVector<double> &a, const QVector<double> &b)
{
    if (a.size() != b.size())
        return false;
    for (int i = 0; i < a.size(); ++i) {
        if (std::memcmp(&a[i], &b[i], sizeof(double)) != 0 && !(std::isnan(a[i]) && std::isnan(b[i])))
            return false;
    }
    return true;
}

void checkShape(const TAsciiTable &table)
{
    require(!table.fY.isEmpty() && table.fPointCount >= 0);
    for (const QVector<double> &y : table.fY)
        require(y.size() == table.fPointCount);
    for (int i = 1; i < table.fKeys.size(); ++i)
        require(table.fKeys[i - 1] < table.fKeys[i]);
}

void checkAgainstJudge(const QByteArray &text, int code, const TAsciiTable &table)
{
    TAsciiTable expected;
    require(TAsciiJudge::read(text, &expected) == code);
    if (code != 0)
        return;
    require(sameBits(table.fKeys, expected.fKeys) && table.fIrregular == expected.fIrregular);
    require(sameBits({table.fFirstX, table.fLastX}, {expected.fFirstX, expected.fLastX}));
    require(table.fY.size() == expected.fY.size());
    for (int i = 0; i < table.fY.size(); ++i)
        require(sameBits(table.fY[i], expected.fY[i]));
}

/// Finite numbers on ascending x survive the way to a file and back, where the reader takes the points for a row.
void checkWayBack(const TAsciiTable &table)
{
    if (table.fKeys.size() < 2 || table.fIrregular)
        return;
    QVector<TCsvSeries> series;
    for (const QVector<double> &y : table.fY)
        series.append(
            {table.fKeys, y, {{-std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity()}}});
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    require(TCsvWriter::write(series, &buffer));
    TAsciiTable again;
    // a last line without a point reads as decimal commas, so that another table comes out
    if (!buffer.data().trimmed().split('\n').last().contains('.') || readAsciiTable(buffer.data(), &again) != 0)
        return;
    if (again.fKeys.size() == table.fKeys.size())
        require(sameBits(again.fKeys, table.fKeys) || table.fKeys.contains(0.0)); // the sign of zero is lost
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray text(reinterpret_cast<const char *>(data), int(size));
    TAsciiTable table;
    const int code = readAsciiTable(text, &table);
    if (code == 0)
        checkShape(table);
    QBuffer device;
    device.setData(text);
    device.open(QIODevice::ReadOnly);
    inspectAsciiTable(&device).text();
    const bool accepted = looksLikeAsciiTable(text);
    if (text.size() > cJudgedBytes || table.fPointCount > cJudgedPoints)
        return 0;
    checkAgainstJudge(text, code, table);
    require(TAsciiJudge::accepts(text) == accepted);
    if (code == 0)
        checkWayBack(table);
    return 0;
}
