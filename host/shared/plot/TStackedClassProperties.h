#pragma once

#include <QColor>
#include <QString>
#include <QVariantMap>

class TDataStream;

/// How the colours of several curves follow from one.
enum TStackColorMode {
    oneColor = 0,
    lightToDarkColors = 1, // tints of the base colour
    sequentialColors = 2,  // a ramp of even lightness steps, for ordered series
    paletteColors = 3      // colours that every kind of sight tells apart, from the base colour on
};

/// A class of spectra in a stack, the colours and the line of its members.
struct TStackedClassProperties
{
    QString name;
    QColor baseColor;
    int colorMode = paletteColors;
    int lineStyle = Qt::SolidLine; // Qt::PenStyle; solid: as the curves of the plot

    /// "Name", "Color", "Color Mode".
    QVariantMap toVariantMap() const;
    /// From such a map; what it has not or has wrong stays as it is by default.
    static TStackedClassProperties fromVariantMap(const QVariantMap &map);

    void store(TDataStream &stream) const;
    /// Keeps the values as they were when the stream holds none or broken ones.
    void load(TDataStream &stream);
    bool operator==(const TStackedClassProperties &other) const;
    bool operator!=(const TStackedClassProperties &other) const { return !(*this == other); }
};
