#pragma once

#include <QPointF>
#include <QRectF>
#include <QString>

/// A label on its way through the arranger. Lengths and places in canvas units.
struct T1DLabelInfo
{
    static constexpr double cFootDistance = 30.0; // from the anchor to the text: 5 gap, 20 tick, 5 gap

    QPointF anchor;
    double value = 0.0; // along the axis
    double width = 0.0; // of the text
    double height = 0.0;
    QString text;
    double weight = 1.0; // the lightest go first where there is no room for all
    int index = 0;       // of what is labelled, in its own list
    bool below = false;  // stands below its anchor: a valley

    double pos = 0.0; // centre along the strip, from the arranger
    bool hasRoom = false;

    /// The text's box at the label's own place: centred over the anchor, its foot cFootDistance above it, or at the
    /// anchor itself when `below` is set. `vertical`: the text is turned, so width and height change places.
    QRectF originalRect(bool vertical) const;
};
