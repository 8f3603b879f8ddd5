#pragma once

/// What a host with windows gives to plug-ins.
class IGuiHost
{
public:
    virtual ~IGuiHost() = default;
    /// Counted: every setWaitCursor needs its restoreCursor.
    virtual void setWaitCursor() = 0;
    virtual void restoreCursor() = 0;
};
