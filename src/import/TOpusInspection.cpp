#include "TOpusInspection.h"

#include "TOpusFile.h"

#include <QFileInfo>

namespace {

QString hexWord(quint32 word)
{
    return QStringLiteral("0x%1").arg(word, 8, 16, QLatin1Char('0'));
}

void addHeader(const TOpusFile &file, TFileNode *root)
{
    TFileNode &header = root->addAt(0, TOpusFile::cHeaderSize, "header");
    header.addAt(0, 4, "magic", file.bytes().bytes(0, 4).toHex(' ').toUpper());
    header.addAt(4, 8, "program version", QString::number(file.version(), 'g', 15));
    header.addAt(12, 4, "offset of the directory", QString::number(file.directoryOffset()));
    header.addAt(16, 4, "capacity of the directory", QString::number(file.directoryCapacity()), "entries");
    header.addAt(20, 4, "entries in use", QString::number(file.directoryCount()));
    if (!file.problem().isEmpty())
        header.addBroken("directory", file.problem());
}

void addParameters(const TOpusFile &file, const TOpusBlock &block, TFileNode *row)
{
    const QVector<TOpusParameter> parameters = file.parameters(block);
    for (int i = 0; i < parameters.size(); ++i) {
        if (i == TFileNode::cMaxShown) {
            row->add("...", QString(), QStringLiteral("%1 more parameters").arg(parameters.size() - i));
            break;
        }
        const TOpusParameter &one = parameters.at(i);
        row->addAt(one.fOffset, one.fValueOffset + one.fValueSize - one.fOffset, one.fName,
                   QString::fromLatin1(file.valueText(one)));
    }
    if (parameters.size() == TOpusFile::cMostParameters)
        row->addSkipped("parameters", QStringLiteral("no more than %1 are read").arg(parameters.size()));
}

void addAxis(const TOpusStatus &status, int count, TFileNode *row)
{
    row->add("points", QString::number(count),
             count < status.fPointCount ? QStringLiteral("%1 were announced").arg(status.fPointCount) : QString());
    row->add("x axis", QStringLiteral("%1 to %2").arg(status.fFirstX, 0, 'g', 12).arg(status.fLastX, 0, 'g', 12));
    row->add("scale of y", QString::number(status.fScale, 'g', 15));
}

void addSeries(const TOpusFile &file, int index, TFileNode *row)
{
    const TOpusSeries series = file.series(index);
    row->add("traces", QString::number(series.fCount), QStringLiteral("%1 were planned").arg(series.fPlanned));
    row->addAt(series.fFirst, series.fDataBytes, "first trace");
    row->addAt(series.fFirst + series.fDataBytes, series.fInfoBytes, "its info record");
}

/// What becomes of a block, in words.
QString useText(const TOpusFile &file, int index)
{
    const TOpusBlock &block = file.blocks().at(index);
    const QString partner =
        block.fPartner < 0
            ? QString()
            : QStringLiteral(", with the block at offset %1").arg(file.blocks().at(block.fPartner).fOffset);
    switch (block.fUse) {
    case TOpusBlock::cSpectrum:
        return QStringLiteral("the spectrum \"%1\"%2").arg(block.fType.name(), partner);
    case TOpusBlock::cTraces:
        return QStringLiteral("the spectra \"%1\"%2").arg(block.fType.name(), partner);
    case TOpusBlock::cHistory:
        return QStringLiteral("history");
    case TOpusBlock::cParameters:
        if (!block.fType.isDataStatus())
            return QStringLiteral("parameters");
        return block.fPartner < 0 ? QStringLiteral("describes no block that counts")
                                  : QStringLiteral("describes data") + partner;
    default:
        return block.fNote + partner;
    }
}

void addBlock(const TOpusFile &file, int index, bool traceBlocksCount, TFileNode *directory)
{
    const TOpusBlock &block = file.blocks().at(index);
    const bool isDirectory = block.fNote.isEmpty() && block.fUse == TOpusBlock::cUnused;
    const bool isSkippedSeries = block.fUse == TOpusBlock::cTraces && !traceBlocksCount;
    QString note = isDirectory ? QStringLiteral("the directory itself") : useText(file, index);
    if (isSkippedSeries)
        note = QStringLiteral("traces are read from files without plain spectra only");
    const QString what = block.fType.description();
    TFileNode &row = directory->addAt(block.fOffset, block.fSize, block.fType.name(),
                                      hexWord(block.fType.word()) + (what.isEmpty() ? QString() : ", " + what), note);
    const bool isGone = block.fUse == TOpusBlock::cNotThere;
    if (isGone && block.fType.word() != 0)
        row.fState = TFileNode::cBroken;
    else if (isGone || isSkippedSeries || block.fUse == TOpusBlock::cSuperseded ||
             (block.fUse == TOpusBlock::cUnused && !isDirectory))
        row.fState = TFileNode::cSkipped;
    if (isGone)
        return;
    if (block.fType.isParameters())
        addParameters(file, block, &row);
    else if (block.fUse == TOpusBlock::cSpectrum)
        addAxis(file.status(index), file.pointCount(index), &row);
    else if (block.fUse == TOpusBlock::cTraces)
        addAxis(file.status(index), file.tracePointCount(index), &row);
    else if (block.fUse == TOpusBlock::cHistory)
        row.add("texts", QString::number(file.historyLines(block).size()));
    if (block.fUse == TOpusBlock::cTraces && block.fType.isSeries())
        addSeries(file, index, &row);
}

} // namespace

TFileNode inspectOpusFile(const QString &path)
{
    TFileNode root;
    const TOpusFile file(path);
    if (!file.hasMagic())
        return root;
    root.fName = QFileInfo(path).fileName();
    root.fValue = QStringLiteral("OPUS");
    root.fOffset = 0;
    root.fSize = file.bytes().size();
    addHeader(file, &root);
    if (file.blocks().isEmpty())
        return root;

    bool traceBlocksCount = true;
    for (const TOpusBlock &block : file.blocks())
        traceBlocksCount = traceBlocksCount && block.fUse != TOpusBlock::cSpectrum;
    TFileNode &directory = root.addAt(file.directoryOffset(), file.blocks().size() * qint64(TOpusFile::cEntrySize),
                                      "directory", QStringLiteral("%1 entries").arg(file.blocks().size()));
    for (int i = 0; i < file.blocks().size(); ++i) {
        if (i == TFileNode::cMaxShown) {
            directory.add("...", QString(), QStringLiteral("%1 more entries").arg(file.blocks().size() - i));
            break;
        }
        addBlock(file, i, traceBlocksCount, &directory);
    }
    return root;
}
