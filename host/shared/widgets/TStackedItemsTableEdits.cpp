// The edits of TStackedItemsTableModel.
#include "widgets/TStackedItemsTableModel.h"

#include "commands/TCmdChangeSpectraIntensity.h"
#include "commands/TCmdEditSpectrumClass.h"
#include "commands/TCmdPanSpectra.h"
#include "commands/TCmdPlotProperties.h"
#include "commands/TCmdStackedItemsArrange.h"
#include "commands/TCmdStackedItemsDeletion.h"
#include "commands/TCommandHistory.h"
#include "contexts/IStackedItemCtx.h"
#include "plot/T1DStackedPlotProperties.h"
#include "properties/TPropertiesBag.h"
#include "settings/TNumberFormat.h"
#include "widgets/IStackedItemsEdits.h"

#include <QCollator>
#include <QDateTime>
#include <QRegularExpression>
#include <algorithm>

namespace {

const QString cColorSettingKey = QStringLiteral("stack.colorSetting");

} // namespace

bool TStackedItemsTableModel::push(TCommand *command)
{
    if (fHistory)
        return fHistory->push(command);
    delete command;
    return false;
}

TCanvasItemList TStackedItemsTableModel::items() const
{
    TCanvasItemList list;
    if (fItem)
        list.append(fItem.get());
    return list;
}

bool TStackedItemsTableModel::setCheck(int spectrum, int column, bool checked)
{
    if (column == cShow)
        return push(new TCmdStackedItemsArrange(items(), {spectrum}, checked));
    QVector<int> used;
    const QList<quint32> ids = stack()->ids(false, true);
    for (int i = 0; i < stack()->count(); ++i) {
        if (i == spectrum ? checked : ids.contains(quint32(stack()->idOf(i))))
            used.append(i);
    }
    if (used.isEmpty()) // the selection is never emptied by hand
        return false;
    stack()->setSelected(used);
    fItem->update();
    return true;
}

bool TStackedItemsTableModel::setNumber(int spectrum, int column, double number)
{
    const T1DStackedPlotProperties *own = stackedProperties();
    if (column == cValue)
        return push(fEdits->valuesCommand(fItem.get(), {{spectrum, number}}));
    if (!own)
        return false;
    const int active = stack()->activeIndex();
    if (column == cFactor)
        return number != 0.0 && push(new TCmdChangeSpectraIntensity(
                                    items(), QMap<int, double>{{spectrum, number * stack()->factor(active)}}));
    const double base = own->offset(quint32(stack()->idOf(active)));
    return push(new TCmdPanSpectra(items(), QMap<int, double>{{spectrum, base + number}}));
}

bool TStackedItemsTableModel::setText(int spectrum, int column, const QString &text)
{
    if (column == cTitle)
        return push(fEdits->titleCommand(fItem.get(), spectrum, text));
    if (column == cClass) {
        TStackedClassProperties properties = stack()->classes().value(text.trimmed());
        properties.name = text.trimmed();
        return push(new TCmdEditSpectrumClass(items(), {spectrum}, properties));
    }
    double number = 0.0;
    return TNumberFormat::read(text, number) && setNumber(spectrum, column, number);
}

bool TStackedItemsTableModel::setData(const QModelIndex &place, const QVariant &value, int role)
{
    const int spectrum = place.isValid() ? indexOfRow(place.row()) : -1;
    if (!stack() || spectrum < 0)
        return false;
    bool changed = false;
    if (role == Qt::CheckStateRole && (place.column() == cShow || place.column() == cUse))
        changed = setCheck(spectrum, place.column(), value.toInt() == Qt::Checked);
    else if (role == Qt::EditRole && isEditable(spectrum, place.column()))
        changed = setText(spectrum, place.column(), value.toString());
    if (changed)
        refresh();
    return changed;
}

void TStackedItemsTableModel::activate(int row)
{
    const int spectrum = indexOfRow(row);
    if (!stack() || spectrum < 0 || spectrum == stack()->activeIndex())
        return;
    if (fEdits) {
        push(fEdits->activeCommand(fItem.get(), spectrum));
    } else {
        push(fItem->activeSpectrumCommand(items(), spectrum));
    }
    refresh();
}

void TStackedItemsTableModel::setColor(int row, const QColor &color)
{
    const int spectrum = indexOfRow(row);
    if (!stack() || !canEdit(IStackedItemsEdits::cColors) || spectrum < 0 || !color.isValid())
        return;
    QVector<QColor> colors = stack()->colors();
    colors[spectrum] = color;
    push(fEdits->colorsCommand(fItem.get(), colors));
    refresh();
}

void TStackedItemsTableModel::showAll()
{
    push(new TCmdStackedItemsArrange(items(), fOrder, true));
    refresh();
}

void TStackedItemsTableModel::deleteSpectra(const QVector<int> &rows)
{
    QVector<int> indices;
    for (const int row : rows)
        indices.append(indexOfRow(row));
    push(new TCmdStackedItemsDeletion(items(), indices));
    refresh();
}

void TStackedItemsTableModel::moveRowsTo(QVector<int> rows, int target)
{
    std::sort(rows.begin(), rows.end());
    QVector<int> before;
    QVector<int> moved;
    QVector<int> after;
    for (int row = 0; row < fOrder.size(); ++row)
        (rows.contains(row) ? moved : row < target ? before : after).append(fOrder.at(row));
    push(new TCmdStackedItemsArrange(items(), before + moved + after));
    refresh();
}

void TStackedItemsTableModel::sortBy(TSortKey key)
{
    if (!stack())
        return;
    QCollator collator;
    collator.setNumericMode(true);
    QVector<int> order = fOrder;
    const auto isBefore = [&](int a, int b) {
        switch (key) {
        case cByTitle:
            return collator.compare(titleOf(a), titleOf(b)) < 0;
        case cByClass:
            return collator.compare(stack()->className(a), stack()->className(b)) < 0;
        case cByDate:
            return factOf(a, cDate).toDateTime() < factOf(b, cDate).toDateTime();
        default:
            return stack()->arrayedValue(a) < stack()->arrayedValue(b);
        }
    };
    std::stable_sort(order.begin(), order.end(), isBefore);
    push(new TCmdStackedItemsArrange(items(), order));
    refresh();
}

bool TStackedItemsTableModel::pasteValues(int row, const QStringList &texts)
{
    QMap<int, double> values;
    for (int i = 0; i < texts.size() && indexOfRow(row + i) >= 0; ++i) {
        double number = 0.0;
        if (!TNumberFormat::read(texts.at(i), number))
            return false;
        values.insert(indexOfRow(row + i), number);
    }
    if (!canEdit(IStackedItemsEdits::cValues) || !stack() || values.isEmpty())
        return false;
    push(fEdits->valuesCommand(fItem.get(), values));
    refresh();
    return true;
}

QMap<int, double> TStackedItemsTableModel::numbersOfTitles() const
{
    // a number that follows a letter or sign directly is taken as well ("dye2.5"), but not the sign of a hyphen
    static const QRegularExpression cTrailing(R"((?:^|(?<=\s))-?\d+(?:[.,]\d+)?$|\d+(?:[.,]\d+)?$)");
    QMap<int, double> numbers;
    for (int i = 0; stack() && i < stack()->count(); ++i) {
        double number = 0.0;
        const QRegularExpressionMatch match = cTrailing.match(titleOf(i).trimmed());
        if (match.hasMatch() && TNumberFormat::read(match.captured(), number))
            numbers.insert(i, number);
    }
    return numbers;
}

bool TStackedItemsTableModel::titlesEndInNumbers() const
{
    return stack() && stack()->count() > 1 && canEdit(IStackedItemsEdits::cValues) &&
           numbersOfTitles().size() == stack()->count();
}

void TStackedItemsTableModel::takeValuesFromTitles()
{
    if (titlesEndInNumbers())
        push(fEdits->valuesCommand(fItem.get(), numbersOfTitles()));
    refresh();
}

void TStackedItemsTableModel::resetFactorsAndOffsets()
{
    if (!stack() || !fHistory)
        return;
    QMap<int, double> ones;
    QMap<int, double> zeros;
    for (int i = 0; i < stack()->count(); ++i) {
        ones.insert(i, 1.0);
        zeros.insert(i, 0.0);
    }
    fHistory->beginMerged(tr("Reset Factors and Offsets"));
    push(new TCmdChangeSpectraIntensity(items(), ones));
    push(new TCmdPanSpectra(items(), zeros));
    fHistory->endMerged();
    refresh();
}

void TStackedItemsTableModel::editProperty(const QString &key, const QVariant &value)
{
    if (!fItem || fItem->properties().bags().empty())
        return;
    for (const std::unique_ptr<TPropertiesBag> &kind : fItem->properties().bags()) {
        std::unique_ptr<TPropertiesBag> bag = kind->create();
        bag->fillFrom(*fItem.get());
        if (!bag->value(key).isValid())
            continue;
        bag->setValue(key, value);
        push(new TCmdPlotProperties(items(), std::move(bag)));
    }
    refresh();
}

int TStackedItemsTableModel::displayMode() const
{
    return stack() ? stack()->displayMode() : int(activeOnlyMode);
}

void TStackedItemsTableModel::setDisplayMode(int mode)
{
    if (fItem)
        push(fItem->displayModeCommand(items(), mode));
    refresh();
}

int TStackedItemsTableModel::colorSetting() const
{
    return stack() ? stack()->colorSetting() : int(hueSetting);
}

void TStackedItemsTableModel::setColorSetting(int setting)
{
    editProperty(cColorSettingKey, setting);
}

void TStackedItemsTableModel::splitByClass()
{
    if (canEdit(IStackedItemsEdits::cSplit) && stack())
        push(fEdits->splitByClassCommand(fItem.get()));
    refresh();
}
