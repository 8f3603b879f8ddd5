#pragma once

#include <QStringList>

/// A command that may do less than it was asked for, and says so; the window's status bar, scripts and the command line
/// pass that on.
class ICommandRemarks
{
public:
    virtual ~ICommandRemarks() = default;

    /// What the last do step left out and why, in words for users; empty when it did everything.
    virtual QStringList remarks() const = 0;
};
