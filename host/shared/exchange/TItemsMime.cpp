#include "exchange/TItemsMime.h"

#include "canvas/TCanvasSpectrum.h"
#include "canvas/TItemFragment.h"
#include "consts/Consts.h"
#include "exchange/TNumberTable.h"
#include "exchange/TPictureExporter.h"
#include "plot/TBasePlot.h"
#include "settings/TDefaultsIni.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"
#include "tables/TCanvasTable.h"

#include <QCoreApplication>
#include <QMimeData>

namespace {

constexpr char cSvgMime[] = "image/svg+xml";
constexpr char cPngMime[] = "image/png";
constexpr char cTabbedMime[] = "text/tab-separated-values";

/// Type, id and block of the active plot of the first spectrum item, as in a document; empty without one.
QByteArray plotBytes(const TCanvasItemList &items)
{
    for (ICanvasItem *item : items) {
        const auto *spectrum = dynamic_cast<TCanvasSpectrum *>(item);
        const TBasePlot *plot = spectrum ? spectrum->activePlot() : nullptr;
        if (!plot)
            continue;
        QByteArray bytes;
        TDataStream stream(&bytes, QIODevice::WriteOnly);
        stream << qint32(plot->plotType()) << plot->id();
        TDataStreamAdaptor block(stream);
        block.startStore();
        plot->store(stream);
        block.endStore();
        return bytes;
    }
    return QByteArray();
}

QList<TNumberTable> tablesOf(const TCanvasItemList &items)
{
    const QByteArray sign = TDefaultsIni().value(TItemsMime::cDecimalSignKey, ".").toString().toLatin1();
    QList<TNumberTable> tables;
    for (ICanvasItem *item : items) {
        const auto *spectrum = dynamic_cast<TCanvasBaseSpectrum *>(item);
        TNumberTable table(spectrum ? spectrum->shownSeries() : QVector<TShownSeries>());
        table.setDecimalSign(sign == "," ? ',' : '.');
        if (!table.isEmpty())
            tables.append(table);
    }
    return tables;
}

QByteArray textOf(const QList<TNumberTable> &tables)
{
    QByteArray text;
    for (const TNumberTable &table : tables)
        text += (text.isEmpty() ? QByteArray() : QByteArray("\n")) + table.text();
    return text;
}

/// Tables of pages go along as text and for spreadsheets; behind numbers of spectra they would tear those apart.
void addTables(QMimeData &data, const TCanvasItemList &items, bool hasNumbers)
{
    QString text;
    QString html;
    for (ICanvasItem *item : items) {
        const auto *table = dynamic_cast<const TCanvasTable *>(item);
        if (!table || table->content().fColumns.isEmpty())
            continue;
        text += (text.isEmpty() ? QString() : QStringLiteral("\n")) + table->content().plainText();
        html += table->content().html();
    }
    if (text.isEmpty() || hasNumbers)
        return;
    data.setText(text);
    data.setHtml(html);
}

} // namespace

QMimeData *TItemsMime::ofItems(const TCanvasItemList &items)
{
    auto *data = new QMimeData;
    data->setData(Consts::Common::cKelmoraMime, TItemFragment::store(items));
    const QByteArray plot = plotBytes(items);
    if (!plot.isEmpty())
        data->setData(Consts::Common::cKelmoraMimeZarnuPlots, plot);
    const TPictureExporter picture = TPictureExporter::ofItems(items);
    data->setData(cSvgMime, picture.bytes(TPictureExporter::cSvg));
    data->setData(cPngMime, picture.bytes(TPictureExporter::cPng));
    const QList<TNumberTable> tables = tablesOf(items);
    int points = 0;
    for (const TNumberTable &table : tables)
        points += table.pointCount();
    if (points > 0 && points < cMaxPoints) {
        const QByteArray text = textOf(tables);
        data->setText(QString::fromUtf8(text));
        data->setData(cTabbedMime, text);
    } else {
        const QString title = TPictureOrigin::of(items).fTitle;
        const QString note = QCoreApplication::translate(
            "TItemsMime", "%n point(s): too many to go along with a picture. Use Copy Numbers.", nullptr, points);
        data->setText(points > 0 ? title + '\n' + note : title);
    }
    addTables(*data, items, points > 0);
    return data;
}

QMimeData *TItemsMime::numbersOf(const TCanvasItemList &items)
{
    const QList<TNumberTable> tables = tablesOf(items);
    if (tables.isEmpty())
        return nullptr;
    auto *data = new QMimeData;
    const QByteArray text = textOf(tables);
    data->setText(QString::fromUtf8(text));
    data->setData(cTabbedMime, text);
    QByteArray html;
    for (const TNumberTable &table : tables)
        html += table.html();
    data->setHtml(QString::fromUtf8(html));
    return data;
}

QByteArray TItemsMime::fragment(const QMimeData *data)
{
    return data ? data->data(Consts::Common::cKelmoraMime) : QByteArray();
}

QByteArray TItemsMime::table(const QMimeData *data)
{
    if (!data)
        return QByteArray();
    return data->hasFormat(cTabbedMime) ? data->data(cTabbedMime) : data->text().toUtf8();
}
