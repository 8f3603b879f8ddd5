#include "exchange/TNumberTable.h"

#include <QHash>
#include <algorithm>
#include <cmath>

namespace {

constexpr int cDigits = 17;

QByteArray joined(const QVector<QByteArray> &cells, const QByteArray &separator)
{
    QByteArray line;
    for (int i = 0; i < cells.size(); ++i)
        line += (i > 0 ? separator : QByteArray()) + cells.at(i);
    return line;
}

/// A title in a cell of its own: no sign that would end it.
QString cellText(const QString &title, const QString &unit)
{
    QString name = title.simplified();
    if (unit.isEmpty())
        return name;
    return name.isEmpty() ? unit : QString("%1 [%2]").arg(name, unit);
}

} // namespace

TNumberTable::TNumberTable(const QVector<TShownSeries> &series)
    : fSeries(series)
{
}

int TNumberTable::pointCount() const
{
    int count = 0;
    for (const TShownSeries &series : fSeries)
        count += series.fX.size();
    return count;
}

QByteArray TNumberTable::number(double value) const
{
    QByteArray text = QByteArray::number(value, 'g', cDigits);
    return fSign == '.' ? text : text.replace('.', fSign);
}

/// The x values of all curves without doubles, in the direction of the first curve.
QVector<double> TNumberTable::positions() const
{
    const QVector<double> &first = fSeries.first().fX;
    const bool isShared = std::all_of(fSeries.begin(), fSeries.end(),
                                      [&first](const TShownSeries &series) { return series.fX == first; });
    if (isShared)
        return first;
    QVector<double> all;
    for (const TShownSeries &series : fSeries)
        all += series.fX;
    all.erase(std::remove_if(all.begin(), all.end(), [](double x) { return std::isnan(x); }), all.end());
    std::sort(all.begin(), all.end());
    all.erase(std::unique(all.begin(), all.end()), all.end());
    if (!first.isEmpty() && first.first() > first.last())
        std::reverse(all.begin(), all.end());
    return all;
}

QVector<QByteArray> TNumberTable::header() const
{
    QVector<QByteArray> cells{fSeries.first().fXUnit.toUtf8()};
    for (const TShownSeries &series : fSeries)
        cells.append(cellText(series.fTitle, series.fYUnit).toUtf8());
    return cells;
}

QVector<QVector<QByteArray>> TNumberTable::rows() const
{
    const QVector<double> x = positions();
    QVector<QVector<QByteArray>> rows(x.size(), QVector<QByteArray>(fSeries.size() + 1));
    for (int row = 0; row < x.size(); ++row)
        rows[row][0] = number(x.at(row));
    for (int column = 0; column < fSeries.size(); ++column) {
        const TShownSeries &series = fSeries.at(column);
        if (series.fX == x) {
            for (int row = 0; row < x.size(); ++row)
                rows[row][column + 1] = number(series.fY.at(row));
            continue;
        }
        QHash<double, int> pointAt;
        for (int i = 0; i < series.fX.size(); ++i)
            pointAt.insert(series.fX.at(i), i);
        for (int row = 0; row < x.size(); ++row) {
            const auto found = pointAt.constFind(x.at(row));
            if (found != pointAt.constEnd())
                rows[row][column + 1] = number(series.fY.at(*found));
        }
    }
    return rows;
}

QByteArray TNumberTable::text() const
{
    if (isEmpty())
        return QByteArray();
    QByteArray text = joined(header(), "\t") + '\n';
    const auto lines = rows();
    for (const QVector<QByteArray> &cells : lines)
        text += joined(cells, "\t") + '\n';
    return text;
}

QByteArray TNumberTable::html() const
{
    if (isEmpty())
        return QByteArray();
    QVector<QByteArray> titles = header();
    for (QByteArray &title : titles)
        title = QString::fromUtf8(title).toHtmlEscaped().toUtf8();
    QByteArray html = "<table>\n<tr><th>" + joined(titles, "</th><th>") + "</th></tr>\n";
    const auto lines = rows();
    for (const QVector<QByteArray> &cells : lines)
        html += "<tr><td>" + joined(cells, "</td><td>") + "</td></tr>\n";
    return html + "</table>\n";
}
