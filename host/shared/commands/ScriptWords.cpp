#include "commands/ScriptWords.h"

#include "contexts/TDARegion.h"
#include "plot/TStackedClassProperties.h"

#include <QStringList>

QString TScriptWords::word(int value) const
{
    for (const QPair<QString, int> &one : fWords) {
        if (one.second == value)
            return one.first;
    }
    return fWords.first().first;
}

bool TScriptWords::value(const QString &word, int &value) const
{
    for (const QPair<QString, int> &one : fWords) {
        if (one.first != word)
            continue;
        value = one.second;
        return true;
    }
    return false;
}

QString TScriptWords::list() const
{
    QStringList words;
    for (const QPair<QString, int> &one : fWords)
        words.append('"' + one.first + '"');
    return words.join(", ");
}

namespace ScriptWords {

const TScriptWords &colorModes()
{
    static const TScriptWords cWords({{"palette", paletteColors},
                                      {"one", oneColor},
                                      {"tints", lightToDarkColors},
                                      {"sequential", sequentialColors}});
    return cWords;
}

const TScriptWords &lineStyles()
{
    static const TScriptWords cWords({{"solid", Qt::SolidLine},
                                      {"none", Qt::NoPen},
                                      {"dash", Qt::DashLine},
                                      {"dot", Qt::DotLine},
                                      {"dashDot", Qt::DashDotLine},
                                      {"dashDotDot", Qt::DashDotDotLine}});
    return cWords;
}

const TScriptWords &regionKinds()
{
    static const TScriptWords cWords(
        {{"none", TDARegion::cNone}, {"sum", TDARegion::cSum}, {"highestPeak", TDARegion::cHighestPeak}});
    return cWords;
}

QColor plainColor(const QColor &color)
{
    return color.isValid() ? QColor::fromRgba(color.rgba()) : color;
}

} // namespace ScriptWords
