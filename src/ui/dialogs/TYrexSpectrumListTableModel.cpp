#include "TYrexSpectrumListTableModel.h"

#include "TCanvasYrexSpectrum.h"
#include "TYrexUnits.h"
#include "widgets/GuiUtils.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <algorithm>
#include <cmath>

namespace {

constexpr double cScale = 2.0; // pictures are sharp on screens of twice the density
constexpr int cRim = 2;

} // namespace

TYrexSpectrumListTableModel::TYrexSpectrumListTableModel(const TCanvasItemList &items, QObject *parent)
    : QAbstractTableModel(parent)
{
    for (ICanvasItem *entry : items) {
        if (TCanvasYrexSpectrum *item = yrexItem(entry))
            fItems.append(item);
    }
    fSparks.resize(fItems.size());
}

int TYrexSpectrumListTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : fItems.size();
}

int TYrexSpectrumListTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(cColumnCount);
}

QString TYrexSpectrumListTableModel::nameOf(const TCanvasYrexSpectrum *item)
{
    if (!item)
        return tr("No Spectrum Selected");
    const QString separator = QStringLiteral(" - ");
    const QString comment = item->currentSpectrum() ? item->currentSpectrum()->comment().trimmed() : QString();
    const QString title = item->title(false);
    QString name = item->isStacked() || (title.isEmpty() && comment.isEmpty()) ? item->historyName() : title;
    if (!comment.isEmpty())
        name = comment + separator + name;
    if (name.endsWith(separator))
        name.chop(separator.size());
    return name;
}

QVariant TYrexSpectrumListTableModel::data(const QModelIndex &index, int role) const
{
    const TCanvasYrexSpectrum *item = itemAt(index.row());
    const TYrexSpectrum *spectrum = item ? item->currentSpectrum() : nullptr;
    if (!item)
        return QVariant();
    if (role == Qt::DecorationRole && index.column() == cName && spectrum) {
        QPixmap &spark = fSparks[index.row()];
        if (spark.isNull())
            spark = sparkline(*item);
        return spark;
    }
    if (role == Qt::TextAlignmentRole && index.column() == cPoints)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    if (role == Qt::ToolTipRole)
        return Utils::Gui::dataTip(data(index, Qt::DisplayRole).toString());
    if (role != Qt::DisplayRole)
        return QVariant();
    switch (index.column()) {
    case cName:
        return nameOf(item);
    case cPoints:
        return spectrum ? spectrum->pointCount() : 0;
    case cHorzUnit:
        return spectrum ? yrexUnitDisplayName(spectrum->xUnits()) : QString();
    case cVertUnit:
        return spectrum ? yrexUnitDisplayName(spectrum->yUnits()) : QString();
    default:
        return QVariant();
    }
}

QVariant TYrexSpectrumListTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return QVariant();
    if (orientation == Qt::Vertical)
        return section + 1;
    const QStringList titles{tr("Spectrum"), tr("Points"), tr("Horizontal Units"), tr("Vertical Units")};
    return titles.value(section);
}

/// The lowest and highest value of each column of pixels, joined; drawn as the plot has it, large wavenumbers left.
QPixmap TYrexSpectrumListTableModel::sparkline(const TCanvasYrexSpectrum &item)
{
    QPixmap pixmap(QSize(cSparkWidth, cSparkHeight) * cScale);
    pixmap.setDevicePixelRatio(cScale);
    pixmap.fill(Qt::transparent);
    const QVector<double> &values = item.currentSpectrum()->values();
    double low = 0.0;
    double high = 0.0;
    TYrexSpectrum::minMax(values, low, high);
    if (values.isEmpty() || !(high > low) || !std::isfinite(high - low))
        return pixmap;
    const int unit = item.shownXUnits();
    const int index = item.stack().current();
    const bool isWavenumber = unit == cUnitWavenumber;
    const bool runsBack = (item.firstXIn(unit, index) > item.lastXIn(unit, index)) != isWavenumber;
    const int columns = cSparkWidth - 2 * cRim;
    const double height = (cSparkHeight - 2 * cRim) / (high - low);
    QPolygonF line;
    for (int column = 0; column < columns; ++column) {
        const int place = runsBack ? columns - 1 - column : column;
        const int from = int(qint64(place) * values.size() / columns);
        const int to = qMax(from + 1, int(qint64(place + 1) * values.size() / columns));
        const auto extremes = std::minmax_element(values.begin() + from, values.begin() + to);
        for (const double y : {*extremes.first, *extremes.second})
            line.append(QPointF(cRim + column, cSparkHeight - cRim - (y - low) * height));
    }
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QGuiApplication::palette().color(QPalette::Text), 1.0));
    painter.drawPolyline(line);
    return pixmap;
}
