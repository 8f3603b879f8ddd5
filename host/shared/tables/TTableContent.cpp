#include "tables/TTableContent.h"

#include "exchange/TRowTable.h"
#include "plot/TTypesetter.h"
#include "settings/TNumberFormat.h"
#include "stream/StreamUtils.h"
#include "stream/TDataStream.h"
#include "tables/TTableProperties.h"
#include "widgets/TTableProxy.h"

#include <QRegularExpression>
#include <algorithm>

namespace {

constexpr QChar cMinus(0x2212);
constexpr QChar cTick(0x2713);
constexpr int cMinColumnSize = 5; // a text and a flag
constexpr int cMinTextSize = 4;

QString keyOf(const QAbstractItemModel &model, int column)
{
    const QString key = model.headerData(column, Qt::Horizontal, TTableProxy::cKeyRole).toString();
    return key.isEmpty() ? QString::number(column) : key;
}

/// "Position [cm-1]": letters with a signed number behind them, in brackets, are a power of a unit.
QString typesetTitle(const QString &title)
{
    static const QRegularExpression cPower(QStringLiteral("(\\[[^\\]]*[A-Za-z])-([0-9]+)(?=[^\\[]*\\])"));
    QString text = title;
    return text.replace(cPower, QStringLiteral("\\1^{%1\\2}").arg(cMinus));
}

/// "-1.5e-05" with a true minus and a raised power.
QString typesetNumber(QString text)
{
    static const QRegularExpression cPower(QStringLiteral("e([+-])0*([0-9]+)$"));
    const QRegularExpressionMatch power = cPower.match(text);
    if (power.hasMatch()) {
        const QString sign = power.captured(1) == QLatin1String("-") ? QString(cMinus) : QString();
        text = text.left(power.capturedStart()) + QString::fromUtf8("\u00D710^{%1%2}").arg(sign, power.captured(2));
    }
    if (text.startsWith('-'))
        text[0] = cMinus;
    return text;
}

QString cellOf(const QModelIndex &place)
{
    const QVariant check = place.data(Qt::CheckStateRole);
    if (check.isValid())
        return check.toInt() == Qt::Checked ? QString(cTick) : QString();
    const QString shown = place.data().toString();
    if (place.data(TTableProxy::cNumberRole).isValid())
        return typesetNumber(TNumberFormat::plain(shown));
    return place.data(TTableProxy::cTypesetRole).toBool() ? shown : TTypesetter::escaped(shown);
}

QVector<int> wantedColumns(const QAbstractItemModel &model, const QStringList &keys)
{
    QVector<int> columns;
    const auto find = [&model](const QString &key) {
        for (int column = 0; column < model.columnCount(); ++column) {
            if (keyOf(model, column) == key)
                return column;
        }
        return -1;
    };
    for (int column = 0; keys.isEmpty() && column < model.columnCount(); ++column)
        columns.append(column);
    for (const QString &key : keys) {
        const int column = find(key);
        if (column >= 0)
            columns.append(column);
    }
    return columns;
}

QString plainTitle(const QAbstractItemModel &model, int column)
{
    const QVariant plain = model.headerData(column, Qt::Horizontal, TTableProxy::cPlainTitleRole);
    return plain.isValid() ? plain.toString() : model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
}

/// Columns that say nothing about any row take no room; they come back with their first cell.
void dropEmptyColumns(TTableContent &content)
{
    for (int column = content.fColumns.size() - 1; column >= 0 && !content.fRows.isEmpty(); --column) {
        const auto isEmpty = [column](const TTableContent::TRow &row) { return row.fCells.at(column).isEmpty(); };
        if (!std::all_of(content.fRows.begin(), content.fRows.end(), isEmpty))
            continue;
        content.fColumns.remove(column);
        for (TTableContent::TRow &row : content.fRows)
            row.fCells.removeAt(column);
    }
}

/// The first colour that a cell of the row has.
QColor colorOf(const TTableProxy &rows, int row)
{
    for (int column = 0; column < rows.columnCount(); ++column) {
        for (const int role : {int(TTableProxy::cColorRole), int(Qt::DecorationRole)}) {
            const QVariant color = rows.index(row, column).data(role);
            if (color.userType() == QMetaType::QColor)
                return color.value<QColor>();
        }
    }
    return QColor();
}

} // namespace

TTableContent TTableContent::ofModel(QAbstractItemModel &model, const TTableProperties &properties)
{
    TTableProxy rows;
    rows.setSourceModel(&model);
    rows.setFilter(properties.filter());
    for (int column = 0; column < model.columnCount() && !properties.sortKey().isEmpty(); ++column) {
        if (keyOf(model, column) == properties.sortKey())
            rows.sort(column, properties.isDescending() ? Qt::DescendingOrder : Qt::AscendingOrder);
    }
    TTableContent content;
    QVector<int> columns;
    for (const int column : wantedColumns(model, properties.columns())) {
        const QString title = plainTitle(model, column);
        if (title.isEmpty())
            continue;
        const int alignment = model.headerData(column, Qt::Horizontal, Qt::TextAlignmentRole).toInt();
        const bool isNumber = (alignment & Qt::AlignRight) != 0 ||
                              (model.rowCount() > 0 && model.index(0, column).data(TTableProxy::cNumberRole).isValid());
        content.fColumns.append({typesetTitle(TTypesetter::escaped(title)), isNumber});
        columns.append(column);
    }
    const int count = qMin(rows.rowCount(), cMaxRows);
    content.fLeftOut = rows.rowCount() - count;
    for (int row = 0; row < count; ++row) {
        TRow one;
        for (const int column : qAsConst(columns))
            one.fCells.append(cellOf(rows.index(row, column)));
        one.fColor = colorOf(rows, row);
        content.fRows.append(one);
    }
    dropEmptyColumns(content);
    return content;
}

namespace {

TRowTable rowTable(const TTableContent &content)
{
    TRowTable table;
    QStringList titles;
    for (const TTableContent::TColumn &column : content.fColumns)
        titles.append(TTypesetter::plainText(column.fTitle));
    table.setHeader(titles);
    for (const TTableContent::TRow &row : content.fRows) {
        QStringList cells;
        for (int i = 0; i < row.fCells.size(); ++i) {
            QString text = TTypesetter::plainText(row.fCells.at(i));
            cells.append(content.fColumns.at(i).fIsNumber ? text.replace(cMinus, '-') : text);
        }
        table.addRow(cells);
    }
    return table;
}

} // namespace

QString TTableContent::plainText() const
{
    return QString::fromUtf8(rowTable(*this).bytes(TRowTable::cTabs));
}

QString TTableContent::html() const
{
    return QString::fromUtf8(rowTable(*this).bytes(TRowTable::cHtml));
}

void TTableContent::store(TDataStream &stream) const
{
    stream << fTitle << qint32(fColumns.size());
    for (const TColumn &column : fColumns)
        stream << column.fTitle << column.fIsNumber;
    stream << qint32(fRows.size());
    for (const TRow &row : fRows) {
        stream << row.fColor;
        for (const QString &cell : row.fCells)
            stream << cell;
    }
    stream << qint32(fLeftOut) << fIsChart;
    if (fIsChart)
        fChart.store(stream);
}

void TTableContent::load(TDataStream &stream)
{
    *this = TTableContent();
    stream >> fTitle;
    const int columns = stream.readCount(cMinColumnSize);
    for (int i = 0; i < columns && stream.isGood(); ++i) {
        TColumn column;
        stream >> column.fTitle >> column.fIsNumber;
        fColumns.append(column);
    }
    const int rows = stream.readCount(1 + cMinTextSize * columns);
    if (rows > cMaxRows) // no writer keeps so many
        stream.setStatus(QDataStream::ReadCorruptData);
    for (int i = 0; i < rows && stream.isGood(); ++i) {
        TRow row;
        Utils::Stream::read(stream, row.fColor);
        for (int k = 0; k < columns && stream.isGood(); ++k) {
            QString cell;
            stream >> cell;
            row.fCells.append(cell);
        }
        if (stream.isGood())
            fRows.append(row);
    }
    qint32 leftOut = 0;
    stream >> leftOut >> fIsChart;
    fLeftOut = qMax(0, int(leftOut));
    if (fIsChart)
        fChart.load(stream);
}
