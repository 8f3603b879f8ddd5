#pragma once

#include "plot/TStackedClassProperties.h"
#include <QMap>
#include <QStringList>
#include <QVector>

class TDataStream;

/// How the spectra of one plot stand to each other.
enum TStackedDisplayMode {
    activeOnlyMode = 0,
    stackedMode = 1,
    overlayMode = 2,
    bitmapMode = 3,
    hiddenLinesMode = 4, // stacked, each curve hides what lies behind it
    queuedMode = 5,      // side by side
    noStackMode = 6,
    groupedMode = 7 // a row per class, its members overlaid
};

/// From what the colours of a stack are made.
enum TStackColorSetting {
    singleColorSetting = 0,
    gradientSetting = 1, // per class
    hueSetting = 2
};

/// Properties of a plot that holds several spectra. A plot index is a spectrum's place in the list.
class T1DStackedPlotProperties
{
public:
    static constexpr quint32 cOwnColors = 1u << 8; // the colours were set by hand
    static constexpr double cMaxAngle = 75.0;      // degrees
    static constexpr double cMinSpacing = 1.0;     // percent
    static constexpr double cMaxSpacing = 400.0;

    T1DStackedPlotProperties();

    int displayMode() const { return fDisplayMode; }
    /// A number that is no mode is refused.
    void setDisplayMode(int mode);
    bool isStackedMode() const; // rows above each other: 1, 3, 4
    bool isQueued() const { return fDisplayMode == queuedMode; }
    bool isGrouped() const { return fDisplayMode == groupedMode; }

    /// Degrees by which the rows of a stack step to the right, held within 0 to cMaxAngle.
    double angle() const { return fAngle; }
    void setAngle(double angle);
    /// Fractions of the curves rectangle's height, held within 0 to 0.45.
    double topMargin() const { return fTopMargin; }
    void setTopMargin(double margin);
    double bottomMargin() const { return fBottomMargin; }
    void setBottomMargin(double margin);
    /// Percent of the pitch that the intensity scale fills, held within 1 to 400.
    double spacing() const { return fSpacing; }
    void setSpacing(double percent);
    double activePenWidthFactor() const { return fActivePenWidthFactor; }
    void setActivePenWidthFactor(double factor); // held within 1 to 5
    bool fadesUnused() const { return fFadesUnused; }
    void setFadesUnused(bool fades) { fFadesUnused = fades; }

    quint32 flags() const { return fFlags; }
    void setFlags(quint32 flags) { fFlags = flags; }
    bool hasOwnColors() const { return fFlags & cOwnColors; }
    void setOwnColors(bool own) { fFlags = own ? fFlags | cOwnColors : fFlags & ~cOwnColors; }

    int colorSetting() const { return fColorSetting; }
    void setColorSetting(int setting);
    int colorMode() const { return fColorMode; }
    void setColorMode(int mode);
    QColor baseColor() const { return fBaseColor; }
    void setBaseColor(const QColor &color) { fBaseColor = color; }
    /// By plot index; an invalid entry means the curve pen's colour.
    const QVector<QColor> &colors() const { return fColors; }
    void setColors(const QVector<QColor> &colors) { fColors = colors; }
    /// The colour at a plot index; invalid when there is none.
    QColor arrayedColor(int plotIndex) const { return fColors.value(plotIndex); }
    /// Gives the spectra at these plot indices the colours of a class, in the order given. The vector grows to the
    /// largest index with invalid colours; negative indices are passed over.
    void generateColorsVector(const TStackedClassProperties &properties, const QVector<int> &plotIndices);

    const QMap<QString, TStackedClassProperties> &stackedClasses() const { return fStackedClasses; }
    void setStackedClasses(const QMap<QString, TStackedClassProperties> &classes) { fStackedClasses = classes; }
    /// Adds a class or replaces the one of the same name; a class without a name is refused.
    void insertClass(const TStackedClassProperties &properties);
    /// Drops the classes that are not among the names.
    void removeOldStackedClasses(const QStringList &used);

    /// Factor and offset in drawing of the spectrum with that id; 1 and 0 when none was set. The data stay as they are.
    double factor(quint32 id) const { return fFactors.value(id, 1.0); }
    double offset(quint32 id) const { return fOffsets.value(id, 0.0); }
    /// Values that are not finite are refused; 1 and 0 take the entry away.
    void setFactor(quint32 id, double factor);
    void setOffset(quint32 id, double offset);
    const QMap<quint32, double> &factors() const { return fFactors; }
    const QMap<quint32, double> &offsets() const { return fOffsets; }

    void store(TDataStream &stream) const;
    /// Keeps the values as they were when the stream holds none or broken ones.
    void load(TDataStream &stream);
    bool operator==(const T1DStackedPlotProperties &other) const;

private:
    bool loadFields(TDataStream &stream);

    int fDisplayMode = activeOnlyMode;
    double fAngle = 0.0;
    double fTopMargin = 0.0;
    double fBottomMargin = 0.0;
    double fSpacing = 100.0;
    double fActivePenWidthFactor = 1.6;
    bool fFadesUnused = true;
    int fColorSetting = hueSetting;
    int fColorMode = paletteColors;
    QColor fBaseColor;
    quint32 fFlags = 0;
    QVector<QColor> fColors;
    QMap<QString, TStackedClassProperties> fStackedClasses;
    QMap<quint32, double> fFactors;
    QMap<quint32, double> fOffsets;
};
