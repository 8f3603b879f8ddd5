#include "TSpectrumParamsTableModel.h"

#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexEditOneParam.h"
#include "TCmdYrexEditParameters.h"
#include "TCmdYrexSetOrigUnits.h"
#include "TYrexUnitSetting.h"
#include "canvas/TDocument.h"
#include "canvas/TStoredHistoryEntry.h"
#include "commands/TCommandHistory.h"
#include "params/TSpectrumParam.h"
#include "services/IGuiHost.h"
#include "services/IPluginHost.h"
#include "settings/TNumberFormat.h"
#include "ui/TIcons.h"
#include "widgets/TTableProxy.h"

#include <QFont>
#include <QGuiApplication>
#include <QIcon>
#include <QPalette>
#include <algorithm>
#include <cmath>

namespace {

constexpr int cLongestTip = 2000;                  // letters
constexpr double cSameNumber = 1e-12;              // relative
constexpr int cNameWidth = 150;                    // px at first
const QColor cHeadingTint(0x80, 0x80, 0x80, 0x28); // seen on light and on dark

bool isUnitRow(int id)
{
    return id == TSpectrumParam::cOrigXUnits || id == TSpectrumParam::cOrigYUnits;
}

TAxisDir axisOf(int id)
{
    return id == TSpectrumParam::cOrigXUnits ? horzDir : vertDir;
}

/// The fewest decimals, up to `most`, that tell the number.
int decimalsOf(double value, int most)
{
    double scale = 1.0;
    for (int decimals = 0; decimals < most; ++decimals, scale *= 10.0) {
        if (std::abs(std::round(value * scale) - value * scale) <= cSameNumber * std::abs(value * scale))
            return decimals;
    }
    return most;
}

bool isDate(const QString &text)
{
    return QDateTime::fromString(QString(text).replace(' ', 'T'), Qt::ISODate).isValid();
}

} // namespace

TSpectrumParamsTableModel::TSpectrumParamsTableModel(IPluginHost &host, QObject *parent)
    : TBaseTableViewModel(parent)
    , fHost(host)
{
}

TCanvasYrexSpectrum *TSpectrumParamsTableModel::item() const
{
    return yrexItem(fItem.get());
}

QVector<TTableColumn> TSpectrumParamsTableModel::makeColumns(const TCanvasYrexSpectrum *item,
                                                             const QVector<int> &used) const
{
    QVector<TTableColumn> columns{{"parameter", tr("Parameter"), tr("What the value says of the spectrum."),
                                   TTableColumn::cText, true, false, cNameWidth}};
    if (!fIsComparing) {
        columns.append(
            {"value", tr("Value"), tr("The value for all spectra in use."), TTableColumn::cText, true, false, 0});
        return columns;
    }
    for (const int index : used.mid(0, cMostCompared))
        columns.append({QString("spectrum%1").arg(index + 1), item->spectrumTitle(index), QString(),
                        TTableColumn::cText, true, false, 0});
    return columns;
}

QVector<TYrexParamRow> TSpectrumParamsTableModel::withHeadings(const QVector<TYrexParamRow> &rows) const
{
    QVector<TYrexParamRow> all;
    for (const TYrexParamRow &row : rows) {
        if (!fOnly.isEmpty()) {
            if (fOnly.contains(row.fId))
                all.append(row);
            continue;
        }
        if (!fIsAll && (row.fIsHidden || (row.fIsLocked && row.isEmpty())))
            continue;
        if (all.isEmpty() || all.last().fGroup != row.fGroup) {
            TYrexParamRow heading;
            heading.fId = cHeadingId;
            heading.fGroup = row.fGroup;
            heading.fName = YrexParamGroups::title(row.fGroup);
            heading.fIsLocked = true;
            all.append(heading);
        }
        all.append(row);
    }
    return all;
}

/// The history is long, and the answer stays the same as long as there is the item.
void TSpectrumParamsTableModel::noteImport(TCanvasYrexSpectrum *item)
{
    if (item->uniqueId() == fImportOf)
        return;
    fImportOf = item->uniqueId();
    fImported = QDateTime();
    if (!fHost.document())
        return;
    for (const TStoredHistoryEntry &entry : fHost.document()->historyEntries()) {
        if (entry.fItemId == fImportOf) {
            fImported = entry.fTime;
            return;
        }
    }
}

void TSpectrumParamsTableModel::read(TCanvasYrexSpectrum *item)
{
    QVector<TYrexParamRow> rows;
    QVector<int> used;
    if (item && item->currentSpectrum()) {
        noteImport(item);
        used = item->stack().selectedIndices(false, true);
        rows = withHeadings(YrexParamRows::of(*item, used, fImported));
        fActive = item->stack().current();
    }
    QVariantList ids;
    for (const TYrexParamRow &row : qAsConst(rows))
        ids.append(row.fId == cHeadingId ? QVariant(QString("group%1").arg(row.fGroup)) : QVariant(row.fId));
    replaceRows(makeColumns(item, used), ids, [&] {
        fItem = TSecurePtr<TCanvasItem>(item);
        fRows = rows;
        fUsed = used;
    });
}

bool TSpectrumParamsTableModel::isStale() const
{
    return item() && item()->stack().selectedIndices(false, true) != fUsed;
}

void TSpectrumParamsTableModel::setAll(bool all)
{
    fIsAll = all;
    read(item());
}

void TSpectrumParamsTableModel::setOnly(const QSet<int> &ids)
{
    fOnly = ids;
    read(item());
}

QVector<int> TSpectrumParamsTableModel::idsOf(const QVector<int> &rows) const
{
    QVector<int> ids;
    for (const int row : rows) {
        if (row >= 0 && row < fRows.size() && !isHeading(row))
            ids.append(fRows.at(row).fId);
    }
    return ids;
}

void TSpectrumParamsTableModel::setComparing(bool comparing)
{
    if (fIsComparing == comparing)
        return;
    fIsComparing = comparing;
    read(item());
}

void TSpectrumParamsTableModel::toggleGroup(int row)
{
    if (row < 0 || row >= fRows.size() || !isHeading(row))
        return;
    const int group = fRows.at(row).fGroup;
    if (!fFolded.remove(group))
        fFolded.insert(group);
    emit dataChanged(index(row, 0), index(fRows.size() - 1, columnCount() - 1));
}

void TSpectrumParamsTableModel::setAllFolded(bool folded)
{
    fFolded.clear();
    for (int group = 0; folded && group < YrexParamGroups::cGroupCount; ++group)
        fFolded.insert(group);
    if (!fRows.isEmpty())
        emit dataChanged(index(0, 0), index(fRows.size() - 1, columnCount() - 1));
}

/// The spectra in use differ, and one cell stands for them all.
bool TSpectrumParamsTableModel::isMixed(int row, int column) const
{
    return column >= cFirstValue && !fIsComparing && fRows.at(row).differs();
}

QString TSpectrumParamsTableModel::rawText(int row, int column) const
{
    if (column == cParameter || isMixed(row, column))
        return QString();
    return fRows.at(row).fTexts.value(fIsComparing ? column - cFirstValue : 0);
}

QString TSpectrumParamsTableModel::text(int row, int column) const
{
    const TYrexParamRow &shown = fRows.at(row);
    if (column == cParameter && isHeading(row))
        return QString::fromUtf8(fFolded.contains(shown.fGroup) ? "\u25B8 " : "\u25BE ") + shown.fName;
    if (column == cParameter || isHeading(row))
        return column == cParameter ? shown.fName : QString();
    if (isMixed(row, column))
        return tr("(%1 values)").arg(shown.fDifferent);
    return rawText(row, column).trimmed().replace('\n', ' ').remove('\r');
}

QVariant TSpectrumParamsTableModel::number(int row, int column) const
{
    if (column == cParameter || isHeading(row) || fRows.at(row).fType != TSpectrumParam::cDouble)
        return QVariant();
    bool isNumber = false;
    const double value = rawText(row, column).toDouble(&isNumber);
    return isNumber && std::isfinite(value) ? QVariant(value) : QVariant();
}

int TSpectrumParamsTableModel::autoDecimals(int row, int column) const
{
    return decimalsOf(number(row, column).toDouble(), fRows.at(row).fPrecision);
}

/// The unit of another spectrum than the active one: it is set for the active one, or for all in use.
bool TSpectrumParamsTableModel::isLockedUnit(int row, int column) const
{
    return isUnitRow(fRows.at(row).fId) && fIsComparing && fUsed.value(column - cFirstValue, -1) != fActive;
}

bool TSpectrumParamsTableModel::isEditable(int row, int column) const
{
    return column >= cFirstValue && !isHeading(row) && !fRows.at(row).fIsLocked && !isLockedUnit(row, column);
}

TSpectrumParamsTableModel::TEditor TSpectrumParamsTableModel::editorOf(int row, int column) const
{
    const int id = fRows.at(row).fId;
    const QString now = rawText(row, column);
    if (!isEditable(row, column))
        return cNoEditor;
    if (isUnitRow(id))
        return cChoiceEditor;
    if (id == TSpectrumParam::cDate && isDate(now))
        return cDateEditor;
    return now.contains('\n') ? cTextEditor : cLineEditor;
}

QVariant TSpectrumParamsTableModel::fontOf(int row, int column) const
{
    const bool isBold = isHeading(row) || (fIsComparing && column >= cParameter && fRows.at(row).differs());
    if (!isBold)
        return QVariant();
    QFont font;
    font.setBold(true);
    return font;
}

QVariant TSpectrumParamsTableModel::data(const QModelIndex &place, int role) const
{
    if (!place.isValid() || place.row() >= fRows.size())
        return QVariant();
    const int row = place.row();
    const TYrexParamRow &shown = fRows.at(row);
    switch (role) {
    case Qt::EditRole:
        return place.column() == cParameter || number(row, place.column()).isValid()
                   ? TBaseTableViewModel::data(place, Qt::DisplayRole)
                   : QVariant(rawText(row, place.column()));
    case Qt::FontRole:
        return fontOf(row, place.column());
    case Qt::BackgroundRole:
        return isHeading(row) ? QVariant(cHeadingTint) : QVariant();
    case Qt::ForegroundRole:
        return !isHeading(row) && (shown.fIsLocked || isMixed(row, place.column()))
                   ? QVariant(QGuiApplication::palette().color(QPalette::Disabled, QPalette::Text))
                   : QVariant();
    case Qt::DecorationRole: {
        static const QIcon cLock = TIcons::load("::/images/lock.svg");
        return shown.fIsLocked && !isHeading(row) && place.column() == cParameter ? QVariant(cLock) : QVariant();
    }
    case cEditorRole:
        return int(editorOf(row, place.column()));
    case cChoicesRole: {
        QStringList names;
        for (const TUnitChoice &choice : TYrexUnitSetting::choices(axisOf(shown.fId)))
            names.append(choice.fName);
        return names;
    }
    case TTableProxy::cHeadingRole:
        return isHeading(row);
    case TTableProxy::cFoldedRole:
        return fFolded.contains(shown.fGroup);
    default:
        return TBaseTableViewModel::data(place, role);
    }
}

QString TSpectrumParamsTableModel::toolTip(int row, int column) const
{
    if (isHeading(row))
        return tr("Folds and unfolds the group.");
    if (column == cParameter)
        return fRows.at(row).fIsLocked ? tr("Comes from the file or the program and cannot be edited.") : QString();
    if (isLockedUnit(row, column))
        return tr("Make this spectrum the active one to say what its axis is.");
    if (isMixed(row, column))
        return tr("The spectra in use differ. An edit sets all %1.").arg(fUsed.size());
    const QString whole = rawText(row, column);
    return whole.size() > cLongestTip ? whole.left(cLongestTip) + QString::fromUtf8("\u2026") : whole;
}

bool TSpectrumParamsTableModel::push(TCommand *command) const
{
    const bool isDone = fHost.history().push(command);
    if (fHost.gui())
        fHost.gui()->updateActions();
    return isDone;
}

/// Whether the text is one for the parameter; a number becomes what programs read.
bool TSpectrumParamsTableModel::isTyped(int row, int column, QString &text)
{
    const TYrexParamRow &shown = fRows.at(row);
    double value = 0.0;
    if (text.isEmpty())
        return true;
    if (shown.fType != TSpectrumParam::cText) {
        if (!TNumberFormat::read(text, value) ||
            (shown.fType == TSpectrumParam::cInteger && value != std::floor(value))) {
            emit refused(index(row, column), shown.fType == TSpectrumParam::cInteger
                                                 ? tr("\"%1\" is not a whole number.").arg(text)
                                                 : tr("\"%1\" is not a number.").arg(text));
            return false;
        }
        text = TNumberFormat::plain(text.trimmed());
    }
    if (shown.fId == TSpectrumParam::cDate && !isDate(text)) {
        emit refused(index(row, column), tr("A date is written as 2026-11-21 or 2026-11-21 14:30:00."));
        return false;
    }
    if (shown.fId == TSpectrumParam::cDate)
        text.replace(' ', 'T');
    return true;
}

bool TSpectrumParamsTableModel::setUnit(TAxisDir axis, const QString &name)
{
    for (const TUnitChoice &choice : TYrexUnitSetting::choices(axis)) {
        if (choice.fName == name)
            return push(new TCmdYrexSetOrigUnits({item()}, axis, choice.fCode,
                                                 fIsComparing ? TCmdYrexSetOrigUnits::cCurrentSpectrum
                                                              : TCmdYrexSetOrigUnits::cUsedSpectra));
    }
    return false;
}

bool TSpectrumParamsTableModel::setText(int id, int column, const QString &text)
{
    if (fIsComparing || fUsed.size() == 1)
        return push(new TCmdYrexEditOneParam({item()}, id, text, fUsed.value(column - cFirstValue, -1)));
    return push(new TCmdYrexEditParameters({item()}, {{id, text}}));
}

bool TSpectrumParamsTableModel::edit(int row, int column, const QString &text)
{
    const int id = fRows.at(row).fId;
    QString typed = text;
    if (!item() || (isMixed(row, column) ? text.isEmpty() : text == rawText(row, column)))
        return false;
    if (isUnitRow(id))
        return setUnit(axisOf(id), text);
    return isTyped(row, column, typed) && setText(id, column, typed);
}

void TSpectrumParamsTableModel::clear(const QVector<int> &rows)
{
    QMap<int, QString> texts;
    for (const int row : rows) {
        const TYrexParamRow &shown = fRows.at(row);
        if (!isHeading(row) && !shown.fIsLocked && !isUnitRow(shown.fId) && !shown.isEmpty())
            texts.insert(shown.fId, QString(""));
    }
    if (item() && !texts.isEmpty())
        push(new TCmdYrexEditParameters({item()}, texts));
}
