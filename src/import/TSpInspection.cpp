#include "TSpInspection.h"

#include "TSpFile.h"
#include "TYrexUnits.h"

#include <algorithm>

namespace {

constexpr int cMaxDepth = 16;
constexpr int cMaxRows = 2000;       // of the whole tree
constexpr int cHistoryBlock = 35711; // holds the name values
constexpr int cTypeInteger = 29999;
constexpr int cTypeShort = 29996;
constexpr int cTypeEnumeration = 29973;
constexpr int cTypeDouble = 29980;
constexpr int cTypeNumber = 29988;

struct TBlockName
{
    int fId;
    const char *fName;
    const char *fWhySkipped; // null: used
};

/// Blocks behind the part that holds the name values; inside of it the same ids mean other things.
const TBlockName cBlockNames[] = {
    {TSpFile::cXRange, "x range", nullptr},
    {TSpFile::cYRange, "y range", "the values tell it"},
    {TSpFile::cXStep, "x step", nullptr},
    {TSpFile::cPoints, "number of points", nullptr},
    {TSpFile::cXUnits, "x label", nullptr},
    {TSpFile::cYUnits, "y label", nullptr},
    {TSpFile::cData, "values", nullptr},
    {TSpFile::cFilePath, "file path", nullptr},
    {TSpFile::cComment, "comment", nullptr},
    {35697, "data type", "always one spectrum on an even axis"},
    {35702, "sampling", "the axis is even"},
    {35705, "x unit code", "the label decides"},
    {35706, "y unit code", "the label decides"},
    {35707, "file type", "the signature decides"},
    {35710, "checksum", "not checked"},
    {cHistoryBlock, "history", nullptr},
    {35714, "accessory history", "the spectrum does not depend on it"},
};

const TBlockName *nameOf(int id)
{
    const auto *const found = std::find_if(std::begin(cBlockNames), std::end(cBlockNames),
                                           [id](const TBlockName &name) { return name.fId == id; });
    return found == std::end(cBlockNames) ? nullptr : found;
}

QString number(double value)
{
    return QString::number(value, 'g', 9);
}

/// The tree of the blocks of a file, row by row.
class TBlockTree
{
public:
    explicit TBlockTree(const TSpFile &file)
        : fFile(file)
        , fFlatStart(file.walk().fFlatStart)
    {
    }

    /// Rows for the blocks of [begin, end).
    void add(TFileNode *parent, qint64 begin, qint64 end, int depth)
    {
        int shown = 0;
        qint64 position = begin;
        while (end - position >= TSpBlock::cHeaderSize) {
            if (++shown > TFileNode::cMaxShown || ++fRows > cMaxRows || depth > cMaxDepth) {
                parent->add(QStringLiteral("%1 more bytes of blocks").arg(end - position));
                return;
            }
            const TSpBlock block = fFile.block(position);
            if (!addBlock(parent, block, end, depth))
                return;
            position = block.end();
        }
    }

private:
    /// Whether there can be another one behind it.
    bool addBlock(TFileNode *parent, const TSpBlock &block, qint64 end, int depth)
    {
        const TBlockName *name = block.fStart >= fFlatStart || block.fId == cHistoryBlock ? nameOf(block.fId) : nullptr;
        QString title = QStringLiteral("block %1").arg(block.fId);
        if (name)
            title += QStringLiteral(" ") + name->fName;
        TFileNode &row = parent->addAt(block.fStart, TSpBlock::cHeaderSize + block.fSize, title);
        const bool isWhole = block.fSize >= 0 && block.end() <= end;
        if (!isWhole) {
            row.fState = TFileNode::cBroken;
            row.fNote = QStringLiteral("expected an end up to offset %1, found a size of %2").arg(end).arg(block.fSize);
            if (block.fSize < 0)
                return false;
        } else if (name && name->fWhySkipped) {
            row.fState = TFileNode::cSkipped;
            row.fNote = name->fWhySkipped;
        }
        if (block.fId == TSpFile::cNameValues && block.fStart < fFlatStart)
            row.fName += QStringLiteral(" name values");
        if (block.fSize < TSpFile::cTypeSize)
            return isWhole;
        if (fFile.bytes().u8(block.payload() + 1) == 'u')
            addValue(block, &row);
        else
            add(&row, block.payload(), std::min(block.end(), end), depth + 1);
        return isWhole;
    }

    void addValue(const TSpBlock &block, TFileNode *row) const
    {
        const TBinaryFile &bytes = fFile.bytes();
        const int type = bytes.u16(block.payload());
        const qint64 at = block.payload() + TSpFile::cTypeSize;
        row->fName += QStringLiteral(", type %1").arg(type);
        switch (type) {
        case TSpFile::cTypeString:
            row->fValue = QString::fromLatin1(fFile.countedText(at, block.end()));
            break;
        case TSpFile::cTypePair:
            row->fValue = QStringLiteral("%1, %2").arg(number(bytes.f64(at)), number(bytes.f64(at + 8)));
            break;
        case TSpFile::cTypeValue:
        case cTypeDouble:
            row->fValue = number(bytes.f64(at));
            break;
        case TSpFile::cTypeCount:
            row->fValue = QString::number(bytes.i32(at));
            break;
        case TSpFile::cTypeData:
            row->fValue = QStringLiteral("%1 bytes of doubles from offset %2").arg(bytes.i32(at)).arg(at + 4);
            break;
        case cTypeInteger:
        case cTypeShort:
        case cTypeEnumeration:
        case cTypeNumber:
            row->fValue = QString::number(bytes.number<qint16>(at));
            break;
        default:
            if (row->fNote.isEmpty())
                row->fNote = QStringLiteral("a type without known meaning");
            break;
        }
        addUnit(block, type, row);
    }

    void addUnit(const TSpBlock &block, int type, TFileNode *row) const
    {
        if (block.fStart < fFlatStart || type != TSpFile::cTypeString)
            return;
        const QByteArray label = fFile.countedText(block.payload() + TSpFile::cTypeSize, block.end());
        if (block.fId == TSpFile::cXUnits)
            row->fNote = QStringLiteral("unit ") + yrexUnitDisplayName(TSpFile::xUnit(label));
        else if (block.fId == TSpFile::cYUnits)
            row->fNote = QStringLiteral("unit ") + yrexUnitDisplayName(TSpFile::yUnit(label));
    }

    const TSpFile &fFile;
    qint64 fFlatStart;
    int fRows = 0;
};

void addMembers(const TSpFile &file, TFileNode *root)
{
    const TSpWalk walk = file.walk();
    if (walk.fMembers < 0) {
        root->addBroken(
            "name values",
            QStringLiteral("expected a block %1 within the first block, found none").arg(TSpFile::cNameValues));
        return;
    }
    const QVector<TSpMember> members = file.members(walk);
    TFileNode &list = root->addAt(walk.fMembers, walk.fMembersEnd - walk.fMembers, "name values",
                                  QStringLiteral("%1 members").arg(members.size()));
    for (int i = 0; i < std::min(members.size(), TFileNode::cMaxShown); ++i) {
        const char *key = TSpFile::memberKey(i);
        TFileNode &row = list.addAt(members.at(i).fOffset, -1, QStringLiteral("%1 %2").arg(i).arg(key ? key : ""),
                                    QString::fromLatin1(members.at(i).fText));
        if (!key) {
            row.fState = TFileNode::cSkipped;
            row.fNote = "a position without known meaning";
        }
    }
    if (members.size() > TFileNode::cMaxShown)
        list.add(QStringLiteral("%1 more members").arg(members.size() - TFileNode::cMaxShown));
}

} // namespace

TFileNode inspectSp(const TSpFile &file)
{
    TFileNode root;
    if (!file.refusal().isEmpty())
        return root;
    const qint64 size = file.bytes().size();
    root.fName = QStringLiteral("PerkinElmer SP");
    root.fValue = QString::fromLatin1(file.description());
    root.fOffset = 0;
    root.fSize = size;
    root.addAt(0, TSpFile::cDescriptionAt, "signature", QString::fromLatin1(file.signature()));
    root.addAt(TSpFile::cDescriptionAt, TSpFile::cDescriptionSize, "description",
               QString::fromLatin1(file.description()));
    const QString noBlock = file.firstBlockProblem();
    if (!noBlock.isEmpty()) {
        root.addBroken("first block", noBlock);
        return root;
    }
    TBlockTree(file).add(&root, TSpFile::cFirstBlockAt, size, 0);
    addMembers(file, &root);
    const QString problem = file.dataProblem(file.contents(file.walk().fFlatStart));
    if (!problem.isEmpty())
        root.addBroken("values", problem);
    return root;
}
