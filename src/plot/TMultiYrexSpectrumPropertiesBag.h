#pragma once

#include "TYrexSpectrumPropertiesBag.h"

/// The looks of several spectrum items at once: only what was touched goes to them.
class TMultiYrexSpectrumPropertiesBag : public TYrexSpectrumPropertiesBag
{
public:
    std::unique_ptr<TPropertiesBag> create() const override
    {
        return std::make_unique<TMultiYrexSpectrumPropertiesBag>();
    }

    QVariantMap appliedFields() const override
    {
        QVariantMap fields;
        for (const QString &key : touched())
            fields.insert(key, value(key));
        return fields;
    }
};
