#include "script/TScriptObjects.h"

#include <QScriptEngine>
#include <algorithm>

bool TScriptObjects::speaksOf(const IScriptHandle *handle, const TKey &key)
{
    return handle && handle->thing() == key.first && handle->part() == key.second;
}

void TScriptObjects::forgetWhatWent()
{
    fLists.clear(); // cheap to make again
    for (auto it = fKnown.begin(); it != fKnown.end();)
        it = it->fHandle->thing() ? std::next(it) : fKnown.erase(it);
    fMostKnown = std::max(fMostKnown, 2 * fKnown.size());
}

QScriptValue TScriptObjects::one(const TKey &key, const std::function<QScriptValue()> &make)
{
    const auto found = fKnown.constFind(key);
    if (found != fKnown.constEnd() && speaksOf(found->fHandle, key))
        return found->fValue;
    const QScriptValue made = make();
    if (const auto *handle = dynamic_cast<IScriptHandle *>(made.toQObject())) {
        if (fKnown.size() >= fMostKnown)
            forgetWhatWent();
        fKnown.insert(key, {handle, made});
    }
    return made;
}

QScriptValue TScriptObjects::list(QScriptEngine &engine, const void *owner, const QVector<TKey> &keys,
                                  const std::function<QScriptValue(int)> &objectAt)
{
    const auto last = fLists.constFind(owner);
    const bool isSame = last != fLists.constEnd() && std::equal(last->fHandles.cbegin(), last->fHandles.cend(),
                                                                keys.cbegin(), keys.cend(), speaksOf);
    if (!isSame) {
        TList list{{}, engine.newArray(uint(keys.size()))};
        for (int i = 0; i < keys.size(); ++i) {
            const QScriptValue object = objectAt(i);
            list.fHandles.append(dynamic_cast<IScriptHandle *>(object.toQObject()));
            list.fArray.setProperty(quint32(i), object);
        }
        fLists.insert(owner, list);
    }
    return engine.newArray().property("slice").call(fLists.value(owner).fArray);
}
