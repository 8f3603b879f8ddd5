#include "TAsciiJudge.h"

#include "TAsciiTable.h"
#include "plainResample.h"

#include <QMap>
#include <QRegExp>
#include <QString>
#include <QStringList>

namespace {

const QRegExp cSeparator(QStringLiteral("\\s*(\\s|\\t|=|,|;|:)+\\s*"));

QStringList linesOf(const QByteArray &bytes)
{
    QString text = QString::fromUtf8(bytes.constData(), bytes.size());
    text.replace(":", ",");
    text.replace("\t", ",");
    text.replace(";", ",");
    text.replace("\r\n", "\n");
    text.replace("\r", "\n");
    return text.split("\n", Qt::KeepEmptyParts);
}

bool passesFilter(const QString &line)
{
    return QRegExp(QStringLiteral("[\\x0000-\\x007f]+"), Qt::CaseSensitive).exactMatch(line);
}

struct TModel
{
    int fTokenCount;
    bool fCommaSeparated;
    bool fDecimalComma;

    explicit TModel(const QString &line)
    {
        fTokenCount = line.split(cSeparator, Qt::SkipEmptyParts).size();
        fCommaSeparated = fTokenCount - 1 == line.count(',');
        fDecimalComma = !line.contains('.');
        if (fDecimalComma)
            fTokenCount /= 2;
    }

    QString token(const QString &line, int c, bool first = false) const
    {
        if (fDecimalComma)
            return line.section(",", 2 * c, 2 * c + 1).replace(",", ".");
        if (fCommaSeparated)
            return line.split(",", Qt::SkipEmptyParts).value(c);
        return line.section(cSeparator, c, c, first ? QString::SectionSkipEmpty : QString::SectionDefault);
    }
};

bool survives(const QString &line, const TModel &model)
{
    if (line.isEmpty() || model.fTokenCount < 1)
        return false;
    bool keep = false;
    for (int c = 0; c < model.fTokenCount; ++c) {
        const QString token = model.token(line, c);
        if (token.isEmpty())
            return keep;
        token.toDouble(&keep);
        if (!keep)
            return false;
    }
    return keep;
}

} // namespace

bool TAsciiJudge::accepts(const QByteArray &head)
{
    const QStringList lines = linesOf(head.left(0x20000));
    int numeric = 0;
    for (int i = 0; i + 1 < lines.size(); ++i) {
        bool ok = false;
        for (int column = 0; passesFilter(lines[i]); ++column) {
            const QString token = lines[i].section(cSeparator, column, column, QString::SectionSkipEmpty).trimmed();
            if (token.isEmpty())
                break;
            token.toDouble(&ok);
            if (!ok)
                break;
        }
        numeric += ok;
    }
    return numeric >= 10;
}

int TAsciiJudge::read(const QByteArray &rawBytes, TAsciiTable *table)
{
    QStringList lines = linesOf(rawBytes);
    for (int i = lines.size() - 1; i >= 0; --i) {
        lines[i] = lines[i].trimmed();
        if (lines[i].isEmpty() || !passesFilter(lines[i]) || lines[i].size() < 3)
            lines.removeAt(i);
    }
    if (lines.isEmpty())
        return 52;
    const TModel model(lines.last().trimmed());
    for (int i = lines.size() - 1; i >= 0; --i) {
        if (!survives(lines[i].trimmed(), model))
            lines.removeAt(i);
    }
    if (lines.isEmpty())
        return 52;
    int columnCount = 0;
    while (columnCount < model.fTokenCount && !model.token(lines.last().trimmed(), columnCount).isEmpty())
        ++columnCount;
    if (columnCount == 0)
        return 52;

    const int rows = lines.size();
    QMap<double, double> first;
    bool descending = false;
    double firstRow = 0.0, previous = 0.0;
    for (int i = 0; i < rows; ++i) {
        const double x = columnCount == 1 ? i + 1 : model.token(lines[i], 0).toDouble();
        const double y = model.token(lines[i], columnCount == 1 ? 0 : 1, columnCount == 1).toDouble();
        if (i == 0)
            firstRow = x;
        if (columnCount > 1 && i == 1)
            descending = firstRow > x;
        if (columnCount > 1 && i > 1 && (descending ? x > firstRow : previous > x))
            return 52;
        previous = x;
        first[x] = y;
    }
    if (first.size() != rows)
        return 52;
    const QVector<double> keys = first.keys().toVector();
    table->fKeys = columnCount == 1 ? QVector<double>() : keys;
    table->fY = {first.values().toVector()};
    for (int c = 2; c < columnCount; ++c) {
        QVector<double> y(rows);
        for (int i = 0; i < rows; ++i)
            y[descending ? rows - 1 - i : i] = model.token(lines[i], c).toDouble();
        table->fY.append(y);
    }
    table->fPointCount = rows;
    table->fFirstX = keys.first();
    table->fLastX = keys.last();

    double mean = 0.0;
    for (double key : keys)
        mean += key;
    mean = rows == 1 ? keys[0] : mean / rows;
    const double ratio = mean / ((table->fLastX + table->fFirstX) * 0.5);
    table->fIrregular = rows > 1 && (ratio > 1.01 || ratio < 0.99);
    if (!table->fIrregular)
        return 0;
    double step = std::fabs(keys[1] - keys[0]);
    for (int i = 2; i < rows; ++i)
        step = std::min(step, std::fabs(keys[i] - keys[i - 1]));
    const double newCount = std::round((table->fLastX - table->fFirstX) / step);
    const double bytes = (newCount * 8.0 + 1024.0) * table->fY.size();
    if (!(newCount < 2.6e8) || (bytes > 67108864.0 && bytes > 64.0 * rawBytes.size()))
        return int(0x80000002);
    QVector<double> newX(static_cast<int>(newCount));
    for (int i = 0; i < newX.size(); ++i)
        newX[i] = table->fFirstX + i * step;
    for (QVector<double> &y : table->fY) {
        plainResample(keys, y, newX);
        y.resize(newX.size());
    }
    table->fPointCount = newX.size();
    return 0;
}
