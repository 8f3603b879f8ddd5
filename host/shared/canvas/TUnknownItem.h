#pragma once

#include "canvas/TCanvasItem.h"

/// An item of a type that no plug-in knows: its bytes are kept and written back as they came.
class TUnknownItem : public TCanvasItem
{
public:
    explicit TUnknownItem(int rtti)
        : TCanvasItem(rtti, nullptr, QString())
    {
    }

    void store(TDataStream &stream) const override;
    void load(TDataStream &stream) override;
    void paint(QPainter &) override {}

private:
    QByteArray fBytes; // of the item's block
};
