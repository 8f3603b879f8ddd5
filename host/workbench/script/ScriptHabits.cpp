#include "ScriptHabits.h"

#include "settings/TDefaultsIni.h"

#include <QFontDatabase>

bool ScriptHabits::isEchoing()
{
    return TDefaultsIni().value(cEchoKey, false).toBool();
}

void ScriptHabits::setEchoing(bool isEchoing)
{
    TDefaultsIni().setValue(cEchoKey, isEchoing);
}

bool ScriptHabits::keepsHistory()
{
    return TDefaultsIni().value(cKeepHistoryKey, true).toBool();
}

QFont ScriptHabits::font()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    const int size = TDefaultsIni().value(cFontSizeKey, 0).toInt();
    if (size > 0)
        font.setPointSize(qBound(cSmallestFont, size, cLargestFont));
    return font;
}
