#pragma once

#include <memory>

/// What a TSecurePtr watches: base of objects that others refer to across event-loop turns.
class TSecurePtrData
{
public:
    TSecurePtrData()
        : fAlive(std::make_shared<char>())
    {
    }
    virtual ~TSecurePtrData() = default;
    TSecurePtrData(const TSecurePtrData &) = delete;
    TSecurePtrData &operator=(const TSecurePtrData &) = delete;

    std::weak_ptr<char> lifeSign() const { return fAlive; }

private:
    std::shared_ptr<char> fAlive;
};

/// A pointer that turns null when the object goes.
template <typename T>
class TSecurePtr
{
public:
    TSecurePtr() = default;
    TSecurePtr(T *object)
        : fObject(object)
    {
        if (object)
            fLife = object->lifeSign();
    }
    T *get() const { return fLife.expired() ? nullptr : fObject; }
    T *operator->() const { return get(); }
    explicit operator bool() const { return get() != nullptr; }

private:
    T *fObject = nullptr;
    std::weak_ptr<char> fLife;
};
