#include "jcamp/JCAMPInspection.h"

#include "jcamp/JCAMPConsts.h"
#include "jcamp/JCAMPTables.h"
#include "jcamp/JCAMPUtils.h"
#include "jcamp/TJCAMPBlock.h"
#include "jcamp/TJCAMPDatasetInterpreter.h"
#include "jcamp/TJCAMPFileMarking.h"

#include <QVector>

using namespace Consts::JCAMP;

namespace {

constexpr int cShownValue = 64; // characters

QString shortText(const QByteArray &value)
{
    const QString text = Utils::JCAMP::textOf(value.left(4 * cShownValue)).simplified();
    return text.size() > cShownValue ? text.left(cShownValue) + "..." : text;
}

/// The beginning of a value, however long it is.
QByteArray valueStart(const QByteArray &text, const TJCAMPRecord &record)
{
    const qint64 begin = record.valueStart(text);
    return text.mid(int(begin), int(qMin(qint64(4 * cShownValue), record.fEnd - begin)));
}

QString numberText(const TJCAMPDatasetInterpreter &interpreter, const char *key)
{
    bool found = false;
    const double value = interpreter.getDouble(key, found);
    return found ? QString::number(value, 'g', 10) : QString("?");
}

void addCheck(const QString &problem, TFileNode *table)
{
    if (!problem.isEmpty())
        table->addBroken("check", problem);
}

/// What a look through a table tells: the values are decoded and thrown away piece by piece.
void addTable(TJCAMPBlock *block, const char *label, TFileNode *row)
{
    TJCAMPDatasetInterpreter interpreter(block, {});
    interpreter.setDataLabel(label);
    bool found = false;
    bool hasUnits = false;
    const double announced = interpreter.getDouble(Params::NPOINTS, found);
    const QString units = shortText(interpreter.getString(Params::XUNITS, hasUnits));
    if (found)
        row->add("points announced", QString::number(announced, 'g', 12), "##NPOINTS");
    TJCAMPDataIterator *values = interpreter.dataIterator();
    row->add("points found", QString::number(interpreter.pointsFound()));
    if (interpreter.isCut())
        row->addSkipped("further points",
                        "no NPOINTS tells how many there are, and no file of this size holds so many");
    if (!values)
        return;
    const qint64 most = interpreter.pointsFound() + 1; // the check of the end included
    qint64 points = 0;
    for (bool isMore = values->first(); isMore && points < most; isMore = values->next())
        ++points;
    row->add("data form", values->formsFound());
    row->add("X range", numberText(interpreter, Params::FIRSTX) + " to " + numberText(interpreter, Params::LASTX),
             units);
    if (interpreter.isLastXAssumed())
        row->addBroken("LASTX", "expected LASTX, DELTAX or a second line with an X of its own, found none: the step is "
                                "taken to be XFACTOR");
    addCheck(values->problem(), row);
}

void addRecords(TJCAMPBlock *block, TFileNode *node)
{
    const QVector<TJCAMPRecord> &records = block->records();
    for (int i = 0; i < records.size(); ++i) {
        if (i == TFileNode::cMaxShown) {
            node->addSkipped(QString("%1 further labels").arg(records.size() - i), "not listed");
            break;
        }
        const TJCAMPRecord &record = records[i];
        const QByteArray label = record.label(block->text());
        const bool isTable = Utils::JCAMP::isTableLabel(label);
        const QByteArray value =
            isTable ? Utils::JCAMP::tableForm(block->text(), record) : valueStart(block->text(), record);
        TFileNode &row = node->addAt(record.fStart, record.fEnd - record.fStart, "##" + Utils::JCAMP::textOf(label),
                                     shortText(value));
        row.fLine = block->lineOf(record.fStart);
        const QByteArray unified = Utils::JCAMP::getUnifiedParamValue(label);
        if (!isTable)
            continue;
        if (unified == Values::XYDATA || unified == Values::XYPOINTS || unified == Values::PEAKTABLE) {
            if (block->indexOf(label.constData()) == i)
                addTable(block, label.constData(), &row);
        } else {
            row.fState = TFileNode::cSkipped;
            row.fNote = "tables of this kind are not read";
        }
    }
    if (!block->hasEnd())
        node->addBroken("##END", "expected ##END=, found the end of what holds the block");
}

} // namespace

TFileNode jcampInspection(const QString &path)
{
    const TJCAMPFileMarking marking(path);
    TFileNode root;
    if (!marking.isValid())
        return root;
    root.fName = "JCAMP-DX";
    root.fValue = QString("%1 blocks").arg(marking.blocks().size());
    root.fOffset = 0;
    root.fSize = marking.content().size();
    const QList<TJCAMPBlock *> &blocks = marking.blocks();
    for (int i = 0; i < blocks.size() && i < TFileNode::cMaxShown; ++i) {
        TJCAMPBlock *block = blocks[i];
        bool found = false;
        TFileNode &node = root.addAt(block->startPos(), block->endPos() - block->startPos(),
                                     QString("block %1").arg(i + 1), shortText(block->getString(Params::TITLE, found)));
        node.fLine = block->lineOf(block->startPos());
        if (block->parent())
            node.fNote = QString("inside block %1").arg(blocks.indexOf(block->parent()) + 1);
        addRecords(block, &node);
    }
    if (blocks.size() > TFileNode::cMaxShown)
        root.addSkipped(QString("%1 further blocks").arg(blocks.size() - TFileNode::cMaxShown), "not listed");
    if (!marking.problem().isEmpty())
        root.addBroken("marking", marking.problem());
    return root;
}
