#pragma once

#include <memory>
#include <vector>

class TCanvasItem;
class TPropertiesBag;

/// The kinds of properties that an item has, one bag each.
class TItemProperties
{
public:
    explicit TItemProperties(TCanvasItem &item);
    ~TItemProperties();
    TItemProperties(const TItemProperties &) = delete;
    TItemProperties &operator=(const TItemProperties &) = delete;

    /// Takes a bag over; one of the same type is replaced.
    void addBag(TPropertiesBag *bag);
    /// The bag of a type, or null.
    TPropertiesBag *bag(int itemType) const;
    const std::vector<std::unique_ptr<TPropertiesBag>> &bags() const { return fBags; }
    /// Gives the item what the user saved as defaults for its kind, bag by bag; nothing where nothing was saved.
    void applyDefaultProperties();

private:
    TCanvasItem &fItem;
    std::vector<std::unique_ptr<TPropertiesBag>> fBags;
};
