#include "properties/TItemProperties.h"

#include "properties/TPropertiesBag.h"

TItemProperties::TItemProperties(TCanvasItem &item)
    : fItem(item)
{
}

TItemProperties::~TItemProperties() = default;

void TItemProperties::addBag(TPropertiesBag *bag)
{
    std::unique_ptr<TPropertiesBag> owned(bag);
    if (!bag)
        return;
    for (std::unique_ptr<TPropertiesBag> &each : fBags) {
        if (each->itemType() == bag->itemType()) {
            each = std::move(owned);
            return;
        }
    }
    fBags.push_back(std::move(owned));
}

TPropertiesBag *TItemProperties::bag(int itemType) const
{
    for (const std::unique_ptr<TPropertiesBag> &each : fBags) {
        if (each->itemType() == itemType)
            return each.get();
    }
    return nullptr;
}

void TItemProperties::applyDefaultProperties()
{
    for (const std::unique_ptr<TPropertiesBag> &each : fBags) {
        const std::unique_ptr<TPropertiesBag> defaults = each->create();
        if (defaults->loadDefaults(fItem))
            defaults->applyTo(fItem);
    }
}
