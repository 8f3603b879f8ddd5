#include "settings/TDefaultsIni.h"

#include "utils/VariantUtils.h"

#include <QHash>
#include <QSettings>
#include <QStringList>
#include <algorithm>
#include <memory>

namespace {

struct TStore
{
    std::unique_ptr<QSettings> fFile; // null: the values live in fMemory
    QHash<QString, QVariant> fMemory;

    QVariant value(const QString &key) const { return fFile ? fFile->value(key) : fMemory.value(key); }
};

TStore &store()
{
    static TStore theStore;
    return theStore;
}

bool textToBool(const QString &text, QVariant &value)
{
    const QString plain = text.trimmed().toLower();
    const bool isTrue = plain == QLatin1String("true") || plain == QLatin1String("1");
    if (!isTrue && plain != QLatin1String("false") && plain != QLatin1String("0"))
        return false;
    value = isTrue;
    return true;
}

/// What an INI file made of a value back to the value's type; false when the text is none of that type.
bool convertTo(int type, QVariant &value)
{
    if (!value.isValid())
        return false;
    if (type == QMetaType::UnknownType || value.userType() == type)
        return true;
    if (type == QMetaType::Bool && value.userType() == QMetaType::QString)
        return textToBool(value.toString(), value);
    if (type == QMetaType::QString && value.userType() == QMetaType::QStringList) {
        // an unquoted comma of a hand-written line
        value = value.toStringList().join(QLatin1String(", "));
        return true;
    }
    return value.convert(type);
}

} // namespace

QVariant TDefaultsIni::value(const QString &key, const QVariant &def) const
{
    QVariant found = store().value(key);
    return convertTo(def.userType(), found) ? found : def;
}

void TDefaultsIni::setValue(const QString &key, const QVariant &value)
{
    QVariant present = store().value(key);
    if (convertTo(value.userType(), present) && Utils::Variant::isSame(present, value))
        return;
    if (store().fFile)
        store().fFile->setValue(key, value);
    else
        store().fMemory.insert(key, value);
}

bool TDefaultsIni::contains(const QString &key) const
{
    return store().value(key).isValid();
}

void TDefaultsIni::remove(const QString &key)
{
    if (store().fFile)
        store().fFile->remove(key);
    else
        store().fMemory.remove(key);
}

QStringList TDefaultsIni::keys(const QString &prefix) const
{
    QStringList keys = store().fFile ? store().fFile->allKeys() : QStringList(store().fMemory.keys());
    keys.erase(std::remove_if(keys.begin(), keys.end(), [&](const QString &key) { return !key.startsWith(prefix); }),
               keys.end());
    keys.sort();
    return keys;
}

void TDefaultsIni::setStore(const QString &path)
{
    store().fMemory.clear();
    store().fFile.reset(new QSettings(path, QSettings::IniFormat));
    store().fFile->setIniCodec("UTF-8");
}

void TDefaultsIni::setStore(TMemory)
{
    store().fFile.reset();
    store().fMemory.clear();
}

bool TDefaultsIni::sync()
{
    if (!store().fFile)
        return true;
    store().fFile->sync();
    return store().fFile->status() == QSettings::NoError;
}
