#include "jcamp/TJCAMPBlock.h"

#include "jcamp/JCAMPConsts.h"
#include "jcamp/JCAMPUtils.h"

using namespace Consts::JCAMP;

TJCAMPBlock::TJCAMPBlock(const QByteArray &text, const std::shared_ptr<TJCAMPLineIndex> &lines, qint64 startPos,
                         TJCAMPBlock *parent)
    : fText(text)
    , fLines(lines)
    , fStartPos(startPos)
    , fEndPos(startPos)
    , fParent(parent)
{
}

QByteArray TJCAMPBlock::getString(const char *key, bool &found) const
{
    const QByteArray unified = Utils::JCAMP::getUnifiedParamValue(QByteArray(key));
    const int index = indexOf(key);
    found = index >= 0;
    QByteArray value = found ? fRecords[index].value(fText) : QByteArray();
    const bool isClass = unified == Utils::JCAMP::getUnifiedParamValue(QByteArray(Params::DATACLASS));
    if (!isClass || !Utils::JCAMP::unifiedFirstLine(value).isEmpty())
        return value;
    bool hasData = false;
    const QByteArray label = dataClass(hasData);
    found = found || hasData;
    return hasData ? label : value;
}

bool TJCAMPBlock::hasLabel(const char *key) const
{
    return indexOf(key) >= 0;
}

int TJCAMPBlock::indexOf(const char *key, int from) const
{
    const QByteArray unified = Utils::JCAMP::getUnifiedParamValue(QByteArray(key));
    for (int i = qMax(from, 0); i < fRecords.size(); ++i) {
        if (fRecords[i].isLabelled(fText, unified))
            return i;
    }
    return -1;
}

int TJCAMPBlock::lineOf(qint64 position) const
{
    return fLines->lineOf(position);
}

/// Files of the generations before DATA CLASS, and peak tables of many writers since, have the label of their data
/// only.
QByteArray TJCAMPBlock::dataClass(bool &found) const
{
    for (const char *label : {Params::XYDATA, Params::XYPOINTS, Params::PEAKTABLE}) {
        if (hasLabel(label)) {
            found = true;
            return label;
        }
    }
    found = false;
    return QByteArray();
}
