#include "ScriptHabits.h"

#include "settings/TDefaultsIni.h"

#include <QCryptographicHash>
#include <QFontDatabase>
#include <QFontInfo>
#include <QStringList>

namespace {

QString sumOf(const QByteArray &script)
{
    return QString::fromLatin1(QCryptographicHash::hash(script, QCryptographicHash::Sha256).toHex());
}

} // namespace

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

bool ScriptHabits::isKnown(const QByteArray &script)
{
    return TDefaultsIni().value(cKnownKey, QStringList()).toStringList().contains(sumOf(script));
}

void ScriptHabits::remember(const QByteArray &script)
{
    QStringList known = TDefaultsIni().value(cKnownKey, QStringList()).toStringList();
    const QString sum = sumOf(script);
    known.removeAll(sum);
    known.prepend(sum);
    TDefaultsIni().setValue(cKnownKey, QStringList(known.mid(0, cMostKnown)));
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
