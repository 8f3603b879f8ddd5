#pragma once

#include <QUuid>

/// What rooms below the canvas may know of an item of a document.
class ICanvasItem
{
public:
    virtual ~ICanvasItem() = default;

    /// The item's type number.
    virtual int rtti() const = 0;
    /// The item's identity within its document.
    virtual QUuid uniqueId() const = 0;
    /// Whether it is the item selected last on the current page.
    virtual bool isActive() const = 0;
    /// Whether it is selected and unlocked, so that edits may reach it.
    virtual bool isSelectedForEdit() const = 0;
    /// Whether it has that id or was copied from an item that had it.
    virtual bool answersTo(const QUuid &id) const { return uniqueId() == id; }
};
