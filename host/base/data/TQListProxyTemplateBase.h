#pragma once

#include <QList>
#include <utility>

class TDataStream;

/// A list that owns its elements, which stay where they are in memory while the list grows.
template <class T>
class TQListProxyTemplateBase
{
public:
    TQListProxyTemplateBase() = default;
    virtual ~TQListProxyTemplateBase() { qDeleteAll(fList); }
    TQListProxyTemplateBase(const TQListProxyTemplateBase &) = delete;
    TQListProxyTemplateBase &operator=(const TQListProxyTemplateBase &) = delete;

    /// Brings the elements into the order of the list; no order here.
    virtual void sort() {}
    /// Adds a copy of the element at the end.
    virtual void append(const T &element) { fList.append(new T(element)); }

    int count() const { return fList.size(); }
    bool isEmpty() const { return fList.isEmpty(); }
    /// The element at an index in [0, count).
    T *at(int index) const { return fList.at(index); }
    void clear()
    {
        qDeleteAll(fList);
        fList.clear();
    }
    /// Deletes an element; an index out of range does nothing.
    void removeAt(int index)
    {
        if (index >= 0 && index < fList.size())
            delete fList.takeAt(index);
    }

    typename QList<T *>::const_iterator begin() const { return fList.constBegin(); }
    typename QList<T *>::const_iterator end() const { return fList.constEnd(); }

protected:
    /// What a derived list writes and reads of its own beside the elements, inside a block; nothing here.
    virtual void storeHook(TDataStream &) const {}
    virtual void loadHook(TDataStream &) {}

    QList<T *> fList;
};
