#include "TYrexParamTemplatesModel.h"

#include "TYrexParamsParsers.h"
#include "TYrexSpectrum.h"
#include "params/TParamsParser.h"
#include "params/TParamsParsers.h"
#include "widgets/GuiUtils.h"

#include <algorithm>

namespace {

constexpr int cLastId = 5000; // of parameters with names

TParamsParser &parserOf(const TYrexSpectrum &spectrum)
{
    return *yrexParamsParsers().value(spectrum.fileFormat());
}

bool isSame(const TSpectrumParam &one, const TSpectrumParam &other)
{
    return one.id() == other.id() && one.dim() == other.dim() && one.expression() == other.expression() &&
           one.source() == other.source() && one.precision() == other.precision() &&
           one.isVisible() == other.isVisible();
}

} // namespace

TYrexParamTemplatesModel::TYrexParamTemplatesModel(const TYrexSpectrum &spectrum, QObject *parent)
    : QAbstractTableModel(parent)
    , fSpectrum(spectrum)
{
    take(parserOf(spectrum).templates());
}

void TYrexParamTemplatesModel::take(const TSpectrumParamsTemplate &entries)
{
    beginResetModel();
    fEntries.clear();
    for (const TSpectrumParam &entry : entries)
        fEntries.append(entry);
    preview();
    endResetModel();
}

/// Entries of one parameter make it together, so that all are evaluated.
void TYrexParamTemplatesModel::preview()
{
    TParamsParser &parser = parserOf(fSpectrum);
    const TSpectrumParamsTemplate inUse = parser.templates();
    parser.setTemplates(templates());
    const TSpectrumParams params = TParamsParsers::parse(yrexParamsParsers(), fSpectrum.paramsBundle(), 1);
    parser.setTemplates(inUse);
    fTexts.clear();
    for (const TSpectrumParam &entry : qAsConst(fEntries)) {
        const TSpectrumParam *param = params.getParam(entry.id());
        fTexts.append(param && !param->value(0).isNull() ? param->value(0) : fSpectrum.paramText(entry.id(), 1));
    }
    if (!fEntries.isEmpty())
        emit dataChanged(index(0, cPreview), index(fEntries.size() - 1, cPreview));
}

TSpectrumParamsTemplate TYrexParamTemplatesModel::templates() const
{
    TSpectrumParamsTemplate made;
    for (const TSpectrumParam &entry : fEntries)
        made.set(entry);
    return made;
}

bool TYrexParamTemplatesModel::isChanged() const
{
    const TSpectrumParamsTemplate &inUse = parserOf(fSpectrum).templates();
    return inUse.count() != fEntries.size() || !std::equal(inUse.begin(), inUse.end(), fEntries.begin(), isSame);
}

void TYrexParamTemplatesModel::reset()
{
    take(parserOf(fSpectrum).defaultTemplates());
}

bool TYrexParamTemplatesModel::isKnown(int id) const
{
    return std::any_of(fEntries.begin(), fEntries.end(), [id](const TSpectrumParam &one) { return one.id() == id; });
}

QVector<QPair<QString, int>> TYrexParamTemplatesModel::choices(int row) const
{
    const int own = row >= 0 && row < fEntries.size() ? fEntries.at(row).id() : 0;
    QVector<QPair<QString, int>> list;
    for (int id = 1; id <= cLastId; ++id) {
        if (id == own || (!TSpectrumParam::paramName(id).isEmpty() && !isKnown(id)))
            list.append({TSpectrumParam(id, QString(), QString(), -1).translated_paramName(), id});
    }
    std::sort(list.begin(), list.end(), [](const QPair<QString, int> &a, const QPair<QString, int> &b) {
        return a.first.localeAwareCompare(b.first) < 0;
    });
    return list;
}

int TYrexParamTemplatesModel::add(int row)
{
    const QVector<QPair<QString, int>> free = choices(-1);
    if (free.isEmpty())
        return -1;
    const int place = qBound(0, row + 1, fEntries.size());
    beginInsertRows(QModelIndex(), place, place);
    fEntries.insert(place, TSpectrumParam(free.first().second, QString(), QString(), -1));
    fTexts.insert(place, QString());
    endInsertRows();
    preview();
    return place;
}

void TYrexParamTemplatesModel::remove(int row)
{
    if (row < 0 || row >= fEntries.size())
        return;
    beginRemoveRows(QModelIndex(), row, row);
    fEntries.remove(row);
    fTexts.remove(row);
    endRemoveRows();
}

int TYrexParamTemplatesModel::move(int row, int step)
{
    const int place = row + step;
    if (row < 0 || row >= fEntries.size() || place < 0 || place >= fEntries.size())
        return row;
    beginMoveRows(QModelIndex(), row, row, QModelIndex(), step > 0 ? place + 1 : place);
    fEntries.move(row, place);
    fTexts.move(row, place);
    endMoveRows();
    return place;
}

int TYrexParamTemplatesModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : fEntries.size();
}

int TYrexParamTemplatesModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(cColumnCount);
}

QVariant TYrexParamTemplatesModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    const QStringList titles{tr("Parameter"), tr("Expression"), tr("Source"),
                             tr("Precision"), tr("Visible"),    tr("Value Now")};
    const QStringList tips{tr("The parameter that the row fills."),
                           tr("A key of the source, a text in double quotes, or a formula that begins with \"=\". An "
                              "empty one is filled by the program."),
                           tr("The part of the file in which the key is looked up."),
                           tr("Decimals of a number, 0 to 17."),
                           tr("Whether the parameter is shown without \"All\"."),
                           tr("What the row gives for the active spectrum.")};
    if (orientation != Qt::Horizontal)
        return QVariant();
    if (role == Qt::TextAlignmentRole)
        return int(Qt::AlignLeft | Qt::AlignVCenter);
    return role == Qt::DisplayRole   ? QVariant(titles.value(section))
           : role == Qt::ToolTipRole ? QVariant(tips.value(section))
                                     : QVariant();
}

QVariant TYrexParamTemplatesModel::data(const QModelIndex &place, int role) const
{
    if (!place.isValid() || place.row() >= fEntries.size())
        return QVariant();
    const TSpectrumParam &entry = fEntries.at(place.row());
    if (role == Qt::CheckStateRole && place.column() == cVisible)
        return entry.isVisible() ? Qt::Checked : Qt::Unchecked;
    if (role != Qt::DisplayRole && role != Qt::EditRole && role != Qt::ToolTipRole)
        return QVariant();
    if (role == Qt::ToolTipRole) {
        const QString shown = data(place, Qt::DisplayRole).toString();
        return place.column() == cPrecision ? QVariant() : Utils::Gui::dataTip(shown);
    }
    switch (place.column()) {
    case cParameter:
        return role == Qt::EditRole ? QVariant(entry.id()) : QVariant(entry.translated_paramName());
    case cExpression:
        return entry.expression();
    case cSource:
        return entry.source();
    case cPrecision:
        return entry.precision();
    case cPreview:
        return QString(fTexts.value(place.row())).replace('\n', ' ');
    default:
        return QVariant();
    }
}

bool TYrexParamTemplatesModel::setEntry(TSpectrumParam &entry, int column, const QVariant &value) const
{
    switch (column) {
    case cParameter: {
        const int id = value.toInt();
        if (id == entry.id() || id <= 0 || isKnown(id))
            return false;
        entry = TSpectrumParam(id, entry.expression(), entry.source(), entry.dim(), entry.isVisible());
        return true;
    }
    case cExpression: // without one it is a null text, as readers have it
        entry.setExpression(value.toString().isEmpty() ? QString() : value.toString());
        return true;
    case cSource:
        entry.setSource(value.toString().isEmpty() ? QString() : value.toString());
        return true;
    case cPrecision:
        entry.setPrecision(value.toInt());
        return true;
    default:
        return false;
    }
}

bool TYrexParamTemplatesModel::setData(const QModelIndex &place, const QVariant &value, int role)
{
    if (!place.isValid() || place.row() >= fEntries.size())
        return false;
    TSpectrumParam entry = fEntries.at(place.row());
    if (role == Qt::CheckStateRole && place.column() == cVisible)
        entry.setVisible(value.toInt() == Qt::Checked);
    else if (role != Qt::EditRole || !setEntry(entry, place.column(), value))
        return false;
    fEntries[place.row()] = entry;
    emit dataChanged(index(place.row(), 0), index(place.row(), cColumnCount - 1));
    preview();
    return true;
}

Qt::ItemFlags TYrexParamTemplatesModel::flags(const QModelIndex &place) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(place);
    if (!place.isValid() || place.column() == cPreview)
        return flags;
    return flags | (place.column() == cVisible ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable);
}
