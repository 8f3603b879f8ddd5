#include "jcamp/TBaseJCAMPParamsParser.h"

#include "jcamp/JCAMPConsts.h"
#include "jcamp/JCAMPUtils.h"
#include "jcamp/TJCAMPBlock.h"

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
    const bool isTitle = Utils::JCAMP::getUnifiedParamValue(label) == Consts::JCAMP::Params::TITLE;
    return QLatin1String("") + Utils::JCAMP::textOf(lines.join(isTitle ? ' ' : '\n'));
}

QString TBaseJCAMPParamsParser::parseParameterName(const QString &, const QString &key) const
{
    return "##" + key;
}
