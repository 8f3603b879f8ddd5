#include "TOmnicInspection.h"

#include "TOmnicFile.h"
#include "TYrexUnits.h"

#include <algorithm>

namespace {

constexpr qint64 cShownText = 200; // bytes of a text block

/// What a type of block holds, and for blocks that the import passes over, why.
struct TBlockMeaning
{
    int fType;
    const char *fName;
    const char *fWhySkipped; // null: used
};

const TBlockMeaning cMeanings[] = {
    {2, "description", nullptr},
    {3, "values", nullptr},
    {4, "comment", nullptr},
    {27, "history", nullptr},
    {100, "interferogram header", "interferograms are not read"},
    {101, "interferogram header", "interferograms are not read"},
    {102, "sample interferogram", "interferograms are not read"},
    {103, "background interferogram", "interferograms are not read"},
    {105, "experiment information", "the spectrum does not depend on it"},
    {106, "experiment information", "the spectrum does not depend on it"},
    {107, "spectrum header", nullptr},
    {130, "experiment information", "the spectrum does not depend on it"},
};

const TBlockMeaning *meaningOf(int type)
{
    const auto *const found = std::find_if(std::begin(cMeanings), std::end(cMeanings),
                                           [type](const TBlockMeaning &meaning) { return meaning.fType == type; });
    return found == std::end(cMeanings) ? nullptr : found;
}

QString number(double value)
{
    return QString::number(value, 'g', 9);
}

QString unitNote(int code, int unit)
{
    return QStringLiteral("%1%2").arg(yrexUnitDisplayName(unit),
                                      code == 11 ? QStringLiteral(", values in percent") : QString());
}

void addTextRow(const TOmnicFile &file, const TOmnicEntry &entry, TFileNode *block)
{
    const QByteArray text = file.bytes().bytes(entry.fOffset, std::min(entry.fSize, cShownText));
    block->fValue = QString::fromLatin1(text).replace(QChar('\0'), QChar(' ')).simplified();
}

void addDescription(const TOmnicFile &file, const TOmnicEntry &entry, TFileNode *block)
{
    const TBinaryFile &bytes = file.bytes();
    const auto at = [&entry](qint64 offset) { return entry.fOffset + offset; };
    const auto count = [&](qint64 offset, const char *name, const char *note = "") {
        block->addAt(at(offset), 4, name, QString::number(bytes.u32(at(offset))), note);
    };
    const auto real = [&](qint64 offset, const char *name, const char *note = "") {
        block->addAt(at(offset), 4, name, number(double(bytes.f32(at(offset)))), note);
    };
    count(0, "kind");
    count(4, "points");
    const int x = file.xCode(entry);
    const int y = file.yCode(entry);
    block->addAt(at(8), 1, "x unit", QString::number(x), unitNote(0, TOmnicFile::xUnit(x)));
    block->addAt(at(12), 1, "y unit", QString::number(y), unitNote(y, TOmnicFile::yUnit(y)));
    real(16, "first x", "in the x unit");
    real(20, "last x", "in the x unit");
    count(28, "scan points");
    count(32, "interferogram peak", "its position in points");
    count(36, "scans");
    count(52, "background scans");
    count(68, "collection time", "in 1/100 s");
    real(80, "laser wavenumber", "in 1/cm");
}

void addSpectrumHeader(const TOmnicFile &file, const TOmnicEntry &entry, TFileNode *block)
{
    const TBinaryFile &bytes = file.bytes();
    const qint64 secondsAt = entry.fOffset + TOmnicFile::cGroupTitleSize;
    const quint32 seconds = bytes.u32(secondsAt);
    block->addAt(entry.fOffset, TOmnicFile::cGroupTitleSize, "title",
                 QString::fromLatin1(bytes.text(entry.fOffset, TOmnicFile::cGroupTitleSize)));
    block->addAt(secondsAt, 4, "seconds", QString::number(seconds), TOmnicFile::timeText(seconds) + " GMT");
}

void fillBlock(const TOmnicFile &file, const TOmnicEntry &entry, TFileNode *block)
{
    const TBlockMeaning *meaning = meaningOf(entry.fType);
    if (!meaning || meaning->fWhySkipped) {
        block->fState = TFileNode::cSkipped;
        block->fNote = meaning ? meaning->fWhySkipped : "a type without known meaning";
    }
    const QString missing = file.missing(entry, entry.fSize);
    if (!missing.isEmpty()) {
        block->fState = TFileNode::cBroken;
        block->fNote = missing;
        return;
    }
    switch (entry.fType) {
    case TOmnicFile::cDescription:
        addDescription(file, entry, block);
        break;
    case TOmnicFile::cData:
        block->fValue = QStringLiteral("%1 floats").arg(entry.fSize / qint64(sizeof(float)));
        break;
    case TOmnicFile::cComment:
    case TOmnicFile::cHistory:
        addTextRow(file, entry, block);
        break;
    case TOmnicFile::cSpectrumHeader:
        addSpectrumHeader(file, entry, block);
        break;
    default:
        break;
    }
}

void addHeader(const TOmnicFile &file, TFileNode *root)
{
    const TBinaryFile &bytes = file.bytes();
    TFileNode &header = root->addAt(0, TOmnicFile::cHeaderSize, "header");
    header.addAt(0, 20, "magic", QString::fromLatin1(bytes.bytes(0, 18)));
    header.addAt(TOmnicFile::cTitleAt, TOmnicFile::cTitleSize, "title", file.title());
    header.addAt(TOmnicFile::cEntryCountAt, 2, "directory entries", QString::number(file.declaredEntries()));
    header.addAt(TOmnicFile::cSecondsAt, 4, "seconds", QString::number(file.seconds()),
                 file.seconds() == 0 ? QStringLiteral("no time") : TOmnicFile::timeText(file.seconds()) + " GMT");
    if (!file.hasHeader())
        header.addBroken("header", QStringLiteral("expected %1 bytes, found the end of the file at %2")
                                       .arg(TOmnicFile::cHeaderSize)
                                       .arg(bytes.size()));
}

void addDirectory(const TOmnicFile &file, TFileNode *root)
{
    const int entries = file.entries().size();
    TFileNode &directory = root->addAt(TOmnicFile::cHeaderSize, TOmnicFile::cEntrySize * entries, "directory",
                                       QStringLiteral("%1 entries").arg(entries));
    if (entries < file.declaredEntries()) {
        directory.fState = TFileNode::cBroken;
        directory.fNote = QStringLiteral("expected %1 entries, found the end of the file").arg(file.declaredEntries());
    }
    for (int i = 0; i < std::min(entries, TFileNode::cMaxShown); ++i) {
        const TOmnicEntry &entry = file.entries().at(i);
        const TBlockMeaning *meaning = meaningOf(entry.fType);
        TFileNode &block =
            directory.addAt(entry.fOffset, entry.fSize,
                            QStringLiteral("type %1 %2").arg(entry.fType).arg(meaning ? meaning->fName : ""));
        fillBlock(file, entry, &block);
    }
    if (entries > TFileNode::cMaxShown)
        directory.add(QStringLiteral("%1 more entries").arg(entries - TFileNode::cMaxShown));
}

void addAxis(const TOmnicFile &file, TFileNode *root)
{
    const auto data = std::find_if(file.entries().begin(), file.entries().end(),
                                   [](const TOmnicEntry &entry) { return entry.fType == TOmnicFile::cData; });
    if (data == file.entries().end()) {
        root->addBroken("x axis", QStringLiteral("expected a data block (type 3) in the directory"));
        return;
    }
    const TOmnicAxis axis = file.count(TOmnicFile::cData) == 1 ? file.singleAxis() : file.groupAxis(*data);
    if (!axis.fProblem.isEmpty()) {
        root->addBroken("x axis", axis.fProblem);
        return;
    }
    root->addAt(axis.fOffset, 8, "x axis", QStringLiteral("%1 to %2").arg(number(axis.fFirst), number(axis.fLast)),
                axis.fFromDescription ? "of the first description: the usual place holds no x range" : "");
}

} // namespace

TFileNode inspectOmnic(const TOmnicFile &file)
{
    TFileNode root;
    if (!file.looksLikeOmnic())
        return root;
    const int spectra = file.count(TOmnicFile::cData);
    root.fName = QStringLiteral("OMNIC");
    root.fValue = spectra == 1 ? QStringLiteral("1 spectrum") : QStringLiteral("group of %1 spectra").arg(spectra);
    root.fOffset = 0;
    root.fSize = file.bytes().size();
    const QString refusal = file.refusal();
    if (!refusal.isEmpty()) {
        root.fState = TFileNode::cBroken;
        root.fNote = refusal;
    }
    addHeader(file, &root);
    addDirectory(file, &root);
    addAxis(file, &root);
    return root;
}
