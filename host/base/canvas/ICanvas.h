#pragma once

/// The page that an import puts its items on. Converters hand it through and know nothing else of it.
class ICanvas
{
public:
    virtual ~ICanvas() = default;
};
