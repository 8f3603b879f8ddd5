#include "ScriptHabits.h"

#include "settings/TDefaultsIni.h"

#include <QFontDatabase>
#include <QFontInfo>

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
    if (!QFontInfo(font).fixedPitch()) { // the system names none
        font.setStyleHint(QFont::TypeWriter);
        font.setFamily(QStringLiteral("monospace"));
    }
    const int size = TDefaultsIni().value(cFontSizeKey, 0).toInt();
    if (size > 0)
        font.setPointSize(qBound(cSmallestFont, size, cLargestFont));
    return font;
}
