#include "builtin/TJCAMPFileConverter.h"

#include "jcamp/JCAMPConsts.h"
#include "jcamp/JCAMPInspection.h"
#include "jcamp/JCAMPUtils.h"
#include "jcamp/TBaseJCAMPConverter.h"
#include "jcamp/TJCAMPBlock.h"
#include "jcamp/TJCAMPExportData.h"
#include "jcamp/TJCAMPFileMarking.h"
#include "jcamp/TJCAMPWriter.h"
#include "log/TLogger.h"
#include "utils/TFileWriter.h"

#include <QFile>
#include <QFileInfo>

namespace {

const QString cJcampFilter = QStringLiteral("JCAMP-DX (*.jcamp *.dx *.jdx *.jcm)");

constexpr qint64 cHeadBytes = 128 * 1024; // that much decides on a file
constexpr int cTypesNamed = 5;            // in a message
constexpr int cMaxLogged = 50;            // refused blocks of one file

QString dataTypeOf(const TJCAMPBlock &block)
{
    bool found = false;
    const QByteArray text = block.getString(Consts::JCAMP::Params::DATATYPE, found);
    return Utils::JCAMP::cutComment(Utils::JCAMP::textOf(text)).section('\n', 0, 0).left(60);
}

/// What stood there instead of a block that a module knows.
QString unknownTypes(const TJCAMPFileMarking &marking)
{
    QStringList types;
    for (const TJCAMPBlock *block : marking.blocks()) {
        const QString type = dataTypeOf(*block);
        if (!type.isEmpty() && !types.contains(type) && types.size() < cTypesNamed)
            types.append(type);
    }
    return QStringLiteral("expected a block with spectral data of a known DATA TYPE, found %1")
        .arg(types.isEmpty() ? QStringLiteral("none") : types.join(", "));
}

/// Logs what no code of the file tells, for it was read otherwise.
void logProblems(const TJCAMPFileMarking &marking, const QStringList &problems)
{
    const auto log = [](const QString &text) { TLogger::printToLogger("Kelmora", text, TLogger::cError); };
    for (const QString &problem : problems.mid(0, cMaxLogged))
        log(QStringLiteral("%1: not read: %2").arg(marking.path(), problem));
    if (problems.size() > cMaxLogged)
        log(QStringLiteral("%1: %2 more blocks are not read").arg(marking.path()).arg(problems.size() - cMaxLogged));
    if (!marking.problem().isEmpty())
        log(QStringLiteral("%1: %2").arg(marking.path(), marking.problem()));
}

} // namespace

TJCAMPFileConverter::TJCAMPFileConverter(QObject *plugin)
    : TBaseConverter({cJcampFilter}, {cJcampFilter}, plugin)
{
}

TJCAMPFileConverter::~TJCAMPFileConverter() = default;

void TJCAMPFileConverter::addBlockConverter(IConverter *converter)
{
    TEntry entry{std::unique_ptr<IConverter>(converter), dynamic_cast<TBaseJCAMPConverter *>(converter)};
    if (entry.fPart)
        fEntries.push_back(std::move(entry));
}

QString TJCAMPFileConverter::refusal(const QString &fileName)
{
    QFile file(fileName);
    if (QFileInfo(fileName).isDir() || !file.open(QIODevice::ReadOnly))
        return QStringLiteral("the file cannot be opened");
    return Utils::JCAMP::hasJCAMPLabel(file.read(cHeadBytes))
               ? QString()
               : QStringLiteral("expected ##TITLE or ##JCAMP at the beginning of a line within the first 128 KiB");
}

/// The first converter that knows the block, with the block set; null when none does.
const TJCAMPFileConverter::TEntry *TJCAMPFileConverter::takerOf(TJCAMPBlock *block, const QString &fileName,
                                                                const QStringList &keys, QVariantMap &map) const
{
    for (const TEntry &entry : fEntries) {
        entry.fPart->setBlock(block, fileName);
        map = entry.fPart->metaData(block, keys);
        if (!map.isEmpty())
            return &entry;
    }
    return nullptr;
}

QVariantMap TJCAMPFileConverter::metaData(const QString &fileName, const QStringList &keys)
{
    if (!QFileInfo(fileName).isFile())
        return {};
    QVariantMap result = TBaseConverter::metaData(fileName, keys);
    if (!canImport(fileName))
        return result;
    const TJCAMPFileMarking marking(fileName);
    QVariantMap found;
    for (TJCAMPBlock *block : marking.blocks()) {
        if (takerOf(block, fileName, keys, found))
            break;
    }
    for (const TEntry &entry : fEntries)
        entry.fPart->setBlock(nullptr, QString());
    for (auto it = found.constBegin(); it != found.constEnd(); ++it)
        result.insert(it.key(), it.value());
    return result;
}

/// The code of the file; `all` gets the items.
int TJCAMPFileConverter::convertBlocks(const TJCAMPFileMarking &marking, ICanvas *parent, TCanvasItemList &all)
{
    bool isOffered = false;
    bool isRead = false;
    int code = cConverterContentUnusable;
    QStringList problems;
    for (TJCAMPBlock *block : marking.blocks()) {
        QVariantMap unused;
        const TEntry *taker = takerOf(block, marking.path(), {}, unused);
        if (!taker)
            continue;
        isOffered = true;
        taker->fPart->setAllImportedItems(all);
        code = taker->fConverter->importFile(marking.path(), parent);
        all = taker->fPart->allImportedItems();
        isRead = isRead || code == cConverterOk;
        if (code != cConverterOk) {
            setProblem(taker->fConverter->problem());
            problems.append(taker->fConverter->problem());
        }
    }
    if (!isOffered)
        setProblem(unknownTypes(marking));
    else if (!isRead)
        problems.removeLast(); // the file's own, then
    logProblems(marking, problems);
    return isRead ? int(cConverterOk) : code;
}

int TJCAMPFileConverter::convert(const QString &fileName, ICanvas *parent)
{
    const TJCAMPFileMarking marking(fileName);
    if (!marking.isValid()) {
        setProblem(marking.problem());
        return QFileInfo(fileName).isFile() && QFileInfo(fileName).isReadable() ? cConverterContentUnusable
                                                                                : cConverterFileNotOpened;
    }
    for (const TEntry &entry : fEntries) {
        entry.fPart->clear();
        entry.fPart->beginImport();
    }
    TCanvasItemList all;
    const int code = convertBlocks(marking, parent, all);
    for (const TEntry &entry : fEntries) {
        entry.fPart->blocksImported(all);
        entry.fPart->endImport();
        entry.fPart->setBlock(nullptr, QString()); // it goes with the marking
    }
    items() = all;
    return code;
}

TFileNode TJCAMPFileConverter::inspect(const QString &fileName)
{
    TFileNode root = jcampInspection(fileName);
    if (root.isEmpty())
        return root;
    const TJCAMPFileMarking marking(fileName);
    TFileNode &blocks = root.add(QStringLiteral("import"));
    int number = 0;
    for (TJCAMPBlock *block : marking.blocks()) {
        const QString name = QStringLiteral("block %1").arg(++number);
        if (number > TFileNode::cMaxShown) {
            blocks.addSkipped(QStringLiteral("..."),
                              QStringLiteral("%1 more blocks").arg(marking.blocks().size() - TFileNode::cMaxShown));
            break;
        }
        QVariantMap unused;
        if (const TEntry *taker = takerOf(block, fileName, {}, unused))
            taker->fPart->inspectBlock(block,
                                       blocks.addAt(block->startPos(), block->endPos() - block->startPos(), name));
        else
            blocks.addSkipped(name, block->children().isEmpty()
                                        ? QStringLiteral("no spectral data of a known DATA TYPE")
                                        : QStringLiteral("holds other blocks"));
    }
    for (const TEntry &entry : fEntries)
        entry.fPart->setBlock(nullptr, QString());
    return root;
}

bool TJCAMPFileConverter::canExport(const TCanvasItemList &items) const
{
    for (const TEntry &entry : fEntries) {
        if (entry.fPart->numberOfItemsToExport(items) > 0)
            return true;
    }
    return false;
}

int TJCAMPFileConverter::exportItems(const TCanvasItemList &items, const QString &fileName)
{
    QList<TJCAMPExportData> spectra;
    TCanvasItemList left = items;
    for (const TEntry &entry : fEntries) {
        TCanvasItemList own;
        for (ICanvasItem *item : qAsConst(left)) {
            if (entry.fPart->numberOfItemsToExport({item}) > 0)
                own.append(item);
        }
        if (own.isEmpty())
            continue;
        for (ICanvasItem *item : qAsConst(own))
            left.removeOne(item);
        entry.fPart->beginExport(own);
        entry.fConverter->exportItems(own, fileName);
        for (int i = 0; i < own.size(); ++i)
            entry.fPart->exportItem(spectra, i);
        entry.fPart->endExport();
    }
    if (spectra.isEmpty())
        return cConverterNothingToExport;
    for (const QString &comment : qAsConst(fExportComments))
        spectra.first().fComments.append({QString(), comment});
    TFileWriter file(fileName);
    if (file.open() && TJCAMPWriter(file.device()).writeFile(spectra, spectra.first().fTitle) && file.commit())
        return cConverterOk;
    setProblem(file.error());
    return cConverterFileNotOpened;
}
