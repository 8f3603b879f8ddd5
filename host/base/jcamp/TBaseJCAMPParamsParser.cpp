#include "jcamp/TBaseJCAMPParamsParser.h"

#include "jcamp/JCAMPConsts.h"
#include "jcamp/JCAMPUtils.h"
#include "jcamp/TJCAMPBlock.h"

namespace {

/// Whether the lines of a label's value are one text that was broken at column 80.
bool isOneText(const QByteArray &label)
{
    using namespace Consts::JCAMP::Params;
    const QByteArray unified = Utils::JCAMP::getUnifiedParamValue(label);
    for (const char *known : {TITLE, OWNER, ORIGIN, SPECTROMETERDATASYSTEM}) {
        if (unified == Utils::JCAMP::getUnifiedParamValue(QByteArray(known)))
            return true;
    }
    return false;
}

} // namespace

QString TBaseJCAMPParamsParser::value(TJCAMPBlock *block, const QString &key)
{
    bool found = false;
    const QByteArray label = key.toUtf8();
    const QByteArray raw = block ? block->getString(label.constData(), found) : QByteArray();
    if (!found)
        return QString();
    QByteArrayList lines;
    for (const QByteArray &line : raw.split('\n')) {
        const QByteArray text = Utils::JCAMP::cutComment(line);
        if (!text.isEmpty())
            lines.append(text);
    }
    return QLatin1String("") + Utils::JCAMP::textOf(lines.join(isOneText(label) ? ' ' : '\n'));
}

QString TBaseJCAMPParamsParser::parseParameterName(const QString &, const QString &key) const
{
    return "##" + key;
}
