#pragma once

/// Is told of changes of a stack of spectra.
class IStackedListNotifier
{
public:
    virtual ~IStackedListNotifier() = default;
    virtual void listChanged() = 0;
    virtual void currentChanged() {}
};
