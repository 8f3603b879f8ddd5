#pragma once

#include <QObject>
#include <functional>
#include <memory>

/// A script object over a record that it owns, or that lives elsewhere and is looked up each time, so that one that
/// went is null.
template <class T>
class TWrapperTemplate : public QObject
{
public:
    using TFinder = std::function<T *()>;

    explicit TWrapperTemplate(std::unique_ptr<T> own)
        : fOwn(std::move(own))
    {
    }
    explicit TWrapperTemplate(const TFinder &finder)
        : fFinder(finder)
    {
    }

    /// Null when the record has gone.
    virtual T *wrapped() const { return fOwn ? fOwn.get() : fFinder ? fFinder() : nullptr; }
    bool isOwner() const { return fOwn != nullptr; }

private:
    std::unique_ptr<T> fOwn;
    TFinder fFinder;
};
