// The file form of TDocument:
//   "KLMDOC\n\0"  quint32 format  QString writer
//   D{ documentId settings{ map } nPages { P{ pageId width height margins title nItems { rtti itemId I{ item } } tail{}
//   } }
//      H{ history } tail{} }
// Blocks that this version does not understand are kept and written back in place.
#include "canvas/DocumentBytes.h"
#include "canvas/TCanvasItem.h"
#include "canvas/TCanvasItemList.h"
#include "canvas/TDocument.h"
#include "canvas/TLoadReport.h"
#include "canvas/TPage.h"
#include "canvas/TStoredHistoryEntry.h"
#include "canvas/TUnknownItem.h"
#include "contexts/IStackedItemCtx.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"
#include "utils/CommonUtils.h"
#include "utils/TFileWriter.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <algorithm>
#include <initializer_list>
#include <new>

namespace {

constexpr char cMagic[] = "KLMDOC\n"; // with the closing zero the eight bytes of the file
constexpr int cMagicSize = 8;
constexpr quint32 cFormat = 1;
constexpr int cMinPageSize = 12; // an empty block
constexpr int cMinItemSize = 4 + 16 + 12;
constexpr int cMinHistorySize = 12; // three lengths
constexpr int cMinParamSize = 8;

constexpr char cPageKey[] = "View/Page";     // setting of the document: the page in view, where it is not the first
constexpr char cActiveKey[] = "View/Active"; // setting of the document: item id to index, where it is not the first

constexpr double cShortestPage = 100.0; // canvas units: 1 cm; letters that fill a page many times crash painters
constexpr double cLongestPage = 1e5;    // 10 m

TDocument::TItemFactory gItemFactory;

/// The value as it can be read back: what the bounded reader of variants does not take is kept as text.
QVariant storable(const QVariant &value)
{
    QByteArray bytes;
    {
        TDataStream out(&bytes, QIODevice::WriteOnly);
        out << value;
    }
    TDataStream in(bytes);
    QVariant back;
    return in.readVariant(back) ? value : QVariant(value.toString());
}

/// The settings with the active spectrum of each stack, which items do not store.
QVariantMap withActiveSpectra(QVariantMap settings, const TCanvasItemList &items)
{
    QVariantMap active;
    for (ICanvasItem *entry : items) {
        const TCanvasItem *item = canvasItem(entry);
        IStackedItemCtx *stack = canvasItem(entry)->stackedContext();
        if (stack && stack->activeIndex() > 0)
            active.insert(item->uniqueId().toString(), stack->activeIndex());
    }
    settings.remove(cActiveKey);
    if (!active.isEmpty())
        settings.insert(cActiveKey, active);
    return settings;
}

void makeSpectraActive(const QVariantMap &settings, const TCanvasItemList &items)
{
    const QVariantMap active = settings.value(cActiveKey).toMap();
    if (active.isEmpty())
        return;
    for (ICanvasItem *entry : items) {
        TCanvasItem *item = canvasItem(entry);
        IStackedItemCtx *stack = item->stackedContext();
        const int index = active.value(item->uniqueId().toString()).toInt();
        if (stack && index > 0 && index < stack->count() && stack->isVisible(index))
            stack->setActiveIndex(index);
    }
}

/// Whether a page of that size and with those margins can be drawn; false for NaN.
bool isPageSound(double width, double height, const std::initializer_list<double> &margins)
{
    const auto isMargin = [](double margin) { return margin >= 0.0 && margin <= cLongestPage; };
    const auto isSide = [](double side) { return side >= cShortestPage && side <= cLongestPage; };
    return isSide(width) && isSide(height) && std::all_of(margins.begin(), margins.end(), isMargin);
}

} // namespace

void TDocument::setItemFactory(const TItemFactory &factory)
{
    gItemFactory = factory;
}

TCanvasItem *TDocument::createItem(int rtti)
{
    return gItemFactory ? gItemFactory(rtti) : nullptr;
}

bool TDocument::isDocument(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.read(cMagicSize) == QByteArray(cMagic, cMagicSize);
}

void TDocument::storePage(TDataStream &stream, const TPage &page) const
{
    TDataStreamAdaptor block(stream);
    block.startStore();
    const QMarginsF margins = page.margins();
    stream << page.id() << page.size().width() << page.size().height();
    stream << margins.left() << margins.top() << margins.right() << margins.bottom() << page.title();
    stream << qint32(page.items().size());
    for (const TCanvasItem *item : page.items()) {
        stream << qint32(item->rtti()) << item->uniqueId();
        TDataStreamAdaptor itemBlock(stream);
        itemBlock.startStore();
        item->store(stream);
        itemBlock.endStore();
    }
    TDataStreamAdaptor tail(stream);
    tail.startStore();
    writeRawBytes(stream, page.tail());
    tail.endStore();
    block.endStore();
}

void TDocument::storeHistory(TDataStream &stream) const
{
    TDataStreamAdaptor block(stream);
    block.startStore();
    const QList<TStoredHistoryEntry> entries = historyEntries();
    stream << qint32(entries.size());
    for (const TStoredHistoryEntry &entry : entries) {
        stream << entry.fTime.toMSecsSinceEpoch() << entry.fDescription << entry.fText << entry.fItemId
               << entry.fUndone;
        stream << qint32(entry.fParams.size());
        for (const THistoryParameter &param : entry.fParams)
            stream << param.fName << storable(param.fValue) << storable(param.fOldValue) << param.fText;
    }
    writeRawBytes(stream, fHistoryTail);
    block.endStore();
}

void TDocument::store(TDataStream &stream) const
{
    stream.writeRawData(cMagic, cMagicSize);
    stream << cFormat << fWriter;
    TDataStreamAdaptor block(stream);
    block.startStore();
    stream << fId;
    {
        TDataStreamAdaptor settings(stream);
        settings.startStore();
        QVariantMap shown = withActiveSpectra(fSettings, items());
        shown.remove(cPageKey);
        if (fPages.indexOf(fCurrentPage) > 0)
            shown.insert(cPageKey, fPages.indexOf(fCurrentPage));
        stream << QVariant(shown);
    }
    stream << qint32(fPages.size());
    for (const TPage *page : fPages)
        storePage(stream, *page);
    storeHistory(stream);
    TDataStreamAdaptor tail(stream);
    tail.startStore();
    writeRawBytes(stream, fTail);
    tail.endStore();
    block.endStore();
}

bool TDocument::saveTo(const QString &path, QString *error)
{
    TFileWriter file(path);
    bool good = file.open();
    QString reason;
    if (good) {
        try {
            TDataStream stream(file.device());
            store(stream);
            good = stream.isGood() && file.commit();
        } catch (const std::bad_alloc &) {
            good = false;
            reason = tr("there is not enough memory");
        }
    }
    if (!good) {
        if (error)
            *error = reason.isEmpty() ? file.error() : reason;
        return false;
    }
    fPath = path;
    fFileTime = QFileInfo(path).lastModified();
    fHistory.setClean();
    return true;
}

bool TDocument::isChangedOnDisk() const
{
    if (fPath.isEmpty() || !fFileTime.isValid())
        return false;
    const QDateTime time = QFileInfo(fPath).lastModified();
    return time.isValid() && time != fFileTime;
}

bool TDocument::fail(TDataStream &stream, TLoadReport &report, const QString &where) const
{
    if (!report.fError.isEmpty())
        return false; // a tolerant reader went on; the first place counts
    const qint64 position = stream.devicePosition();
    const bool isCut = stream.status() == QDataStream::ReadPastEnd || stream.isTruncated();
    const QString why = isCut ? tr("the data end early") : tr("the data are damaged");
    report.fPosition = position;
    report.fError = tr("At byte %1, %2: %3.").arg(QLocale::c().toString(position).replace(",", " "), where, why);
    return false;
}

bool TDocument::loadItem(TDataStream &stream, TPage &page, int itemNumber, TLoadReport &report)
{
    qint32 rtti = 0;
    QUuid id;
    stream >> rtti >> id;
    if (!stream.isGood())
        return false;
    TCanvasItem *item = createItem(rtti);
    if (!item) {
        item = new TUnknownItem(rtti);
        report.fWarnings.append(tr("An item of the unknown type %1 is kept as it is.").arg(rtti));
    }
    const bool wasCutBefore = stream.isTruncated();                            // an enclosing block, or an earlier item
    stream.setTruncated(stream.bytesLeft() < TDataStreamAdaptor::cHeaderSize); // every item has a block
    TDataStreamAdaptor block(stream);
    if (block.hasData())
        item->load(stream);
    const bool isWhole = stream.isGood() && !stream.isTruncated();
    if (stream.isTolerant() && !isWhole)
        fail(stream, report, tr("in page %1, item %2").arg(fPages.size()).arg(itemNumber));
    block.skipData();
    const bool isCut = stream.isTruncated();
    stream.setTruncated(wasCutBefore || isCut);
    if (stream.isTolerant() && (isCut || !stream.isGood())) {
        delete item;
        report.fWarnings.append(tr("Item %1 of page %2 is damaged and left out.").arg(itemNumber).arg(fPages.size()));
        stream.resetStatus(); // the block's end is known, so that the items behind it can be read
        return true;
    }
    item->setUniqueId(id);
    page.insertItem(item);
    report.fItems += stream.isGood();
    return stream.isGood();
}

bool TDocument::loadPage(TDataStream &stream, TLoadReport &report)
{
    const int pageNumber = fPages.size() + 1;
    TPage *page = appendPage();
    TDataStreamAdaptor block(stream);
    if (!block.hasData())
        return stream.isGood() || fail(stream, report, tr("in page %1").arg(pageNumber));
    QUuid id;
    double width = 0.0, height = 0.0, left = 0.0, top = 0.0, right = 0.0, bottom = 0.0;
    QString title;
    stream >> id >> width >> height >> left >> top >> right >> bottom >> title;
    if (!isPageSound(width, height, {left, top, right, bottom}))
        stream.setStatus(QDataStream::ReadCorruptData);
    if (!stream.isGood())
        return fail(stream, report, tr("in page %1").arg(pageNumber));
    page->setId(id);
    page->setSize(QSizeF(width, height));
    page->setMargins(QMarginsF(left, top, right, bottom));
    page->setTitle(title);
    const int count = stream.readCount(cMinItemSize);
    for (int i = 0; i < count && stream.isGood(); ++i) {
        if (!loadItem(stream, *page, i + 1, report))
            return fail(stream, report, tr("in page %1, item %2").arg(pageNumber).arg(i + 1));
    }
    TDataStreamAdaptor tail(stream);
    if (tail.hasData())
        page->setTail(readRestOfBlock(stream));
    tail.skipData();
    block.skipData();
    return stream.isGood() || fail(stream, report, tr("in page %1").arg(pageNumber));
}

void TDocument::loadHistory(TDataStream &stream)
{
    TDataStreamAdaptor block(stream);
    if (block.hasData()) {
        const int count = stream.readCount(cMinHistorySize);
        for (int i = 0; i < count && stream.isGood(); ++i) {
            TStoredHistoryEntry entry;
            qint64 time = 0;
            stream >> time >> entry.fDescription >> entry.fText >> entry.fItemId >> entry.fUndone;
            entry.fTime = QDateTime::fromMSecsSinceEpoch(time, Qt::UTC);
            const int paramCount = stream.readCount(cMinParamSize);
            for (int k = 0; k < paramCount && stream.isGood(); ++k) {
                THistoryParameter param;
                stream >> param.fName;
                stream.readVariant(param.fValue);
                stream.readVariant(param.fOldValue);
                stream >> param.fText;
                entry.fParams.append(param);
            }
            fStoredHistory.append(entry);
        }
        fHistoryTail = readRestOfBlock(stream);
    }
    block.skipData();
}

bool TDocument::load(TDataStream &stream, TLoadReport &report)
{
    char magic[cMagicSize] = {};
    if (stream.readRawData(magic, cMagicSize) != cMagicSize ||
        QByteArray(magic, cMagicSize) != QByteArray(cMagic, cMagicSize)) {
        report.fPosition = 0;
        report.fError = tr("At byte 0: this is not a document.");
        return false;
    }
    stream >> fFormat >> fWriter;
    if (stream.isGood() && fFormat > cFormat)
        report.fWarnings.append(tr("The document was written by a newer version (%1).").arg(fWriter));
    TDataStreamAdaptor block(stream);
    if (!block.hasData())
        return fail(stream, report, tr("behind the header"));
    stream >> fId;
    {
        TDataStreamAdaptor settings(stream);
        QVariant map;
        if (settings.hasData() && stream.readVariant(map))
            fSettings = map.toMap();
    }
    report.fOk = loadPages(stream, report) && loadBehindPages(stream, report);
    makeSpectraActive(fSettings, items());
    if (TPage *page = fPages.value(fSettings.value(cPageKey).toInt()))
        setCurrentPage(page);
    block.skipData();
    report.fTruncated = stream.isTruncated();
    if (stream.isTolerant())
        report.fOk = report.fItems > 0 || (report.fOk && !report.fTruncated);
    return report.fOk;
}

bool TDocument::loadPages(TDataStream &stream, TLoadReport &report)
{
    const int pageCount = stream.readCount(cMinPageSize);
    for (int i = 0; i < pageCount && stream.isGood(); ++i) {
        if (stream.isTolerant() && stream.atLimit())
            break;
        if (loadPage(stream, report))
            continue;
        if (!stream.isTolerant())
            return false;
        report.fWarnings.append(tr("Page %1 is damaged.").arg(i + 1));
        stream.resetStatus();
    }
    return stream.isGood() || fail(stream, report, tr("in the number of pages"));
}

bool TDocument::loadBehindPages(TDataStream &stream, TLoadReport &report)
{
    loadHistory(stream);
    if (!stream.isGood())
        return fail(stream, report, tr("in the history"));
    TDataStreamAdaptor tail(stream);
    if (tail.hasData())
        fTail = readRestOfBlock(stream);
    tail.skipData();
    return stream.isGood() || fail(stream, report, tr("at the end"));
}

bool TDocument::recoverFrom(const QString &path, TLoadReport &report)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        report.fError = file.errorString();
        return false;
    }
    TDataStream stream(&file);
    stream.setTolerant(true);
    const bool any = load(stream, report);
    fId = Utils::Common::createUuid();
    if (any)
        fHistory.setUnsaved();
    return any;
}

bool TDocument::loadFrom(const QString &path, TLoadReport &report)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        report.fError = file.errorString();
        return false;
    }
    const QDateTime time = QFileInfo(path).lastModified(); // before the first byte is read
    TDataStream stream(&file);
    try {
        if (!load(stream, report))
            return false;
    } catch (const std::bad_alloc &) {
        report.fError = tr("there is not enough memory to read it");
        return false;
    }
    if (fFormat <= cFormat) { // saving must not take from a newer program's file what this one does not know
        fPath = path;
        fFileTime = time;
    }
    fHistory.setClean();
    return true;
}

bool TDocument::restore(TDataStream &stream, const QString &path, TLoadReport &report)
{
    if (!load(stream, report))
        return false;
    fPath = path;
    fHistory.setUnsaved();
    return true;
}
