// What the table shows. The edits stand in TStackedItemsTableEdits.cpp.
#include "widgets/TStackedItemsTableModel.h"

#include "canvas/TCanvasSpectrum.h"
#include "contexts/IStackedItemCtx.h"
#include "plot/ColorUtils.h"
#include "plot/T1DStackedPlot.h"
#include "settings/TNumberFormat.h"
#include "widgets/IStackedItemsEdits.h"
#include "widgets/TBaseTableViewModel.h"
#include "widgets/TTableProxy.h"

#include <QBrush>
#include <QDateTime>
#include <QFont>
#include <QMimeData>
#include <algorithm>

namespace {

const QString cRowsMime = QStringLiteral("application/x-kelmora-stacked-rows");
constexpr int cOffsetDecimals = 6;
const QColor cGroupTint(0x80, 0x80, 0x80, 0x28); // seen on light and on dark

/// The text without the zeros that say nothing.
QString trimmedNumber(QString text)
{
    if (!text.contains('.'))
        return text;
    while (text.endsWith('0'))
        text.chop(1);
    if (text.endsWith('.'))
        text.chop(1);
    return text == QLatin1String("-0") ? QStringLiteral("0") : text;
}

bool isNumeric(int column)
{
    using T = TStackedItemsTableModel;
    return column == T::cNumber || (column >= T::cValue && column <= T::cOffset) || column == T::cPoints;
}

/// Digits behind the point; those of an exponent do not count.
int decimalsOf(const QString &text)
{
    const QString digits = text.section('e', 0, 0);
    return digits.contains('.') ? digits.size() - digits.indexOf('.') - 1 : 0;
}

} // namespace

TStackedItemsTableModel::TStackedItemsTableModel(QObject *parent)
    : QAbstractTableModel(parent)
{
}

void TStackedItemsTableModel::setItem(TCanvasItem *item)
{
    if (item && item == fItem.get())
        return;
    if (fPage)
        fPage->disconnect(this);
    fItem = TSecurePtr<TCanvasItem>(item);
    fPage = item ? item->canvas() : nullptr;
    if (fPage) {
        connect(fPage, &TPage::changed, this, [this](TCanvasItem *changed) {
            if (changed == fItem.get())
                refresh();
        });
    }
    beginResetModel();
    fOrder = rowsOfStack();
    measureColumns();
    endResetModel();
}

void TStackedItemsTableModel::setEdits(IStackedItemsEdits *edits)
{
    fEdits = edits;
    refresh();
}

/// In the display order; grouped, the spectra of a class stand together.
QVector<int> TStackedItemsTableModel::rowsOfStack() const
{
    QVector<int> order = stack() ? stack()->order() : QVector<int>();
    if (!stack() || stack()->displayMode() != groupedMode)
        return order;
    const QStringList names = stack()->classNames();
    const auto group = [this, &names](int spectrum) { return names.indexOf(stack()->className(spectrum).trimmed()); };
    std::stable_sort(order.begin(), order.end(), [&group](int a, int b) { return group(a) < group(b); });
    return order;
}

/// Every second class has another background, so that groups are told apart.
bool TStackedItemsTableModel::isOddGroup(int spectrum) const
{
    return stack()->displayMode() == groupedMode &&
           (stack()->classNames().indexOf(stack()->className(spectrum).trimmed()) & 1) != 0;
}

bool TStackedItemsTableModel::isOnDarkPaper() const
{
    const auto *spectrum = dynamic_cast<const TCanvasSpectrum *>(fItem.get());
    const TBasePlot *plot = spectrum ? spectrum->activePlot() : nullptr;
    return plot && (plot->stateWord() & TBasePlot::cDarkPaper);
}

QColor TStackedItemsTableModel::color(int row) const
{
    const int spectrum = indexOfRow(row);
    return stack() && spectrum >= 0 ? stack()->color(spectrum) : QColor();
}

void TStackedItemsTableModel::setDecimals(int decimals)
{
    fDecimals = decimals;
    refresh();
}

void TStackedItemsTableModel::measureColumns()
{
    fMostDecimals.clear();
    for (const int column : {cValue, cFactor, cOffset}) {
        for (const int spectrum : qAsConst(fOrder))
            fMostDecimals[column] = qMax(fMostDecimals.value(column), decimalsOf(numberText(spectrum, column)));
    }
}

void TStackedItemsTableModel::refresh()
{
    const QVector<int> order = rowsOfStack();
    if (order == fOrder) {
        measureColumns();
        if (!order.isEmpty())
            emit dataChanged(index(0, 0), index(order.size() - 1, cColumnCount - 1));
        return;
    }
    beginResetModel();
    fOrder = order;
    measureColumns();
    endResetModel();
}

IStackedItemCtx *TStackedItemsTableModel::stack() const
{
    return fItem ? fItem->stackedContext() : nullptr;
}

const T1DStackedPlotProperties *TStackedItemsTableModel::stackedProperties() const
{
    const auto *spectrum = dynamic_cast<const TCanvasSpectrum *>(fItem.get());
    const auto *plot = spectrum ? dynamic_cast<const T1DStackedPlot *>(spectrum->activePlot()) : nullptr;
    return plot ? &plot->stackedProperties() : nullptr;
}

int TStackedItemsTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() || !stack() ? 0 : fOrder.size();
}

int TStackedItemsTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : cColumnCount;
}

QStringList TStackedItemsTableModel::classNames() const
{
    return stack() ? stack()->classNames() : QStringList();
}

QVariant TStackedItemsTableModel::factOf(int spectrum, int column) const
{
    if (!fEdits)
        return QVariant();
    const auto fact = IStackedItemsEdits::TFact(column - cDate + IStackedItemsEdits::cDate);
    return fEdits->fact(fItem.get(), spectrum, fact);
}

QString TStackedItemsTableModel::titleOf(int spectrum) const
{
    const QString title =
        fEdits ? fEdits->fact(fItem.get(), spectrum, IStackedItemsEdits::cTitle).toString() : QString();
    return title.isEmpty() ? stack()->title(spectrum) : title;
}

QVariant TStackedItemsTableModel::numberOf(int spectrum, int column) const
{
    switch (column) {
    case cNumber:
        return double(spectrum + 1);
    case cValue:
        return stack()->arrayedValue(spectrum);
    case cFactor:
        return stack()->relativeFactor(spectrum);
    case cOffset: {
        const T1DStackedPlotProperties *own = stackedProperties();
        if (!own)
            return 0.0;
        const auto offset = [this, own](int index) { return own->offset(quint32(stack()->idOf(index))); };
        return offset(spectrum) - offset(stack()->activeIndex());
    }
    case cPoints: {
        const QVariant points = factOf(spectrum, column);
        return points.isValid() ? QVariant(points.toDouble()) : points;
    }
    default:
        return QVariant();
    }
}

QString TStackedItemsTableModel::numberText(int spectrum, int column) const
{
    if (fDecimals >= 0)
        return QString::number(numberOf(spectrum, column).toDouble(), 'f', fDecimals);
    if (column == cOffset)
        return trimmedNumber(stack()->offsetText(spectrum, cOffsetDecimals));
    return QString::number(numberOf(spectrum, column).toDouble(), 'g', column == cValue ? 10 : 6);
}

QVariant TStackedItemsTableModel::textOf(int spectrum, int column) const
{
    switch (column) {
    case cNumber:
        return spectrum + 1;
    case cTitle:
        return titleOf(spectrum);
    case cClass:
        return stack()->className(spectrum).trimmed();
    case cValue:
    case cFactor:
    case cOffset:
        return TNumberFormat::shown(numberText(spectrum, column));
    case cDate:
        return factOf(spectrum, column).toDateTime().toString("yyyy-MM-dd HH:mm");
    case cPoints:
    case cFormat:
        return factOf(spectrum, column);
    default:
        return QVariant();
    }
}

QVariant TStackedItemsTableModel::data(const QModelIndex &place, int role) const
{
    const int spectrum = place.isValid() ? indexOfRow(place.row()) : -1;
    if (!stack() || spectrum < 0 || spectrum >= stack()->count())
        return QVariant();
    const bool isActive = spectrum == stack()->activeIndex();
    const int column = place.column();
    if (role == Qt::DisplayRole && column == cActive)
        return isActive ? QStringLiteral("\u25B6") : QString();
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return textOf(spectrum, column);
    if (role == Qt::CheckStateRole && column == cShow)
        return stack()->isVisible(spectrum) ? Qt::Checked : Qt::Unchecked;
    if (role == Qt::CheckStateRole && column == cUse) {
        const bool isUsed = stack()->ids(false, true).contains(quint32(stack()->idOf(spectrum)));
        return isUsed ? Qt::Checked : Qt::Unchecked;
    }
    if (role == TTableProxy::cColorRole && column == cSwatch)
        return stack()->color(spectrum);
    if (role == Qt::DecorationRole && column == cSwatch) {
        const QColor color = stack()->color(spectrum);
        if (!color.isValid())
            return QVariant();
        return isOnDarkPaper() ? Utils::Color::onDarkPaper(color) : color;
    }
    if (role == TTableProxy::cNumberRole)
        return numberOf(spectrum, column);
    if (role == TBaseTableViewModel::cPadRole && fMostDecimals.value(column) > 0)
        return fMostDecimals.value(column) - decimalsOf(numberText(spectrum, column));
    if (role == Qt::BackgroundRole && isOddGroup(spectrum))
        return QBrush(cGroupTint);
    if (role == Qt::FontRole && column == cTitle && isActive) {
        QFont bold;
        bold.setBold(true);
        return bold;
    }
    if (role == Qt::TextAlignmentRole && isNumeric(column))
        return int(Qt::AlignRight | Qt::AlignVCenter);
    return QVariant();
}

QVariant TStackedItemsTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= cColumnCount)
        return QVariant();
    if (role == Qt::TextAlignmentRole)
        return int((isNumeric(section) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    if (role != Qt::DisplayRole)
        return QVariant();
    const QString names[cColumnCount] = {QString(),   tr("Show"),   tr("Use"),   tr("#"),      QString(),
                                         tr("Title"), tr("Class"),  tr("Value"), tr("Factor"), tr("Offset"),
                                         tr("Date"),  tr("Points"), tr("Format")};
    return names[section];
}

Qt::ItemFlags TStackedItemsTableModel::flags(const QModelIndex &place) const
{
    if (!place.isValid())
        return Qt::ItemIsDropEnabled; // rows are dropped between rows
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (fHistory)
        flags |= Qt::ItemIsDragEnabled;
    if (place.column() == cShow || place.column() == cUse)
        return flags | Qt::ItemIsUserCheckable;
    return isEditable(indexOfRow(place.row()), place.column()) ? flags | Qt::ItemIsEditable : flags;
}

bool TStackedItemsTableModel::canEdit(int edit) const
{
    return fEdits && fHistory && fEdits->canEdit(IStackedItemsEdits::TEdit(edit));
}

bool TStackedItemsTableModel::isEditable(int spectrum, int column) const
{
    if (!stack() || !fHistory || spectrum < 0)
        return false;
    switch (column) {
    case cTitle:
        return canEdit(IStackedItemsEdits::cTitles);
    case cValue:
        return canEdit(IStackedItemsEdits::cValues);
    case cClass:
        return true;
    case cFactor:
    case cOffset:
        return spectrum != stack()->activeIndex(); // what the others are measured by
    default:
        return false;
    }
}

QStringList TStackedItemsTableModel::mimeTypes() const
{
    return {cRowsMime};
}

QMimeData *TStackedItemsTableModel::mimeData(const QModelIndexList &places) const
{
    QStringList rows;
    for (const QModelIndex &place : places) {
        const QString row = QString::number(place.row());
        if (!rows.contains(row))
            rows.append(row);
    }
    auto *mime = new QMimeData;
    mime->setData(cRowsMime, rows.join(' ').toLatin1());
    return mime;
}

bool TStackedItemsTableModel::dropMimeData(const QMimeData *mime, Qt::DropAction action, int row, int,
                                           const QModelIndex &parent)
{
    if (!mime || action != Qt::MoveAction || !mime->hasFormat(cRowsMime))
        return false;
    QVector<int> rows;
    for (const QByteArray &text : mime->data(cRowsMime).split(' '))
        rows.append(text.toInt());
    const int onto = parent.isValid() ? parent.row() : rowCount();
    moveRowsTo(rows, row < 0 ? onto : row);
    return false; // the command moved them; the view has nothing to remove
}
