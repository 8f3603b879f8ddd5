#pragma once

#include "plot/TStackedClassProperties.h"

#include <QByteArray>
#include <QColor>
#include <QList>
#include <QMap>
#include <QPoint>
#include <QStringList>
#include <QVector>

class TDataStream;

/// The spectra of an item, as tables, commands and data analysis work on them without knowing the item's type. The
/// order of the operations is part of the interface between binaries.
///
/// An index is a position in the list, an id a stable number that survives reordering, a row the place in the display.
/// Without an item every operation answers with its empty value: -1 for an index or id, 0 or false for a count or flag,
/// an empty list or text, 1.0 for a factor. An index out of range answers in the same way.
class IStackedItemCtx
{
public:
    virtual ~IStackedItemCtx() = default;

    virtual int activeIndex() const = 0;
    virtual void setActiveIndex(int index) = 0;
    virtual int idOf(int index) const = 0;
    virtual int count() const = 0;
    /// These spectra are selected, the others are not.
    virtual void setSelected(const QVector<int> &indices) = 0;
    /// Takes a spectrum out and leaves it in `bytes`. False, with nothing done, for an index out of range.
    virtual bool take(int index, QByteArray &bytes) = 0;
    /// Puts a spectrum in from the bytes of take, under a new id; an index beyond the end is the end. False for bytes
    /// that hold no whole spectrum.
    virtual bool insert(int index, const QByteArray &bytes) = 0;
    /// The ids in list order: the visible ones only, the selected ones only.
    virtual QList<quint32> ids(bool visibleOnly, bool withSelected) const = 0;
    virtual bool isVisible(int index) const = 0;
    virtual bool allVisible() const = 0;
    virtual bool selectionEmpty() const = 0;
    virtual int anchor() const = 0;
    /// Writes the ids in display order, then the hidden ids in the order in which they were hidden: an int32 count and
    /// uint32 ids each.
    virtual void storeOrder(TDataStream &stream) const = 0;
    /// Makes a spectrum active; a hidden one passes that on to the next visible one, cyclically.
    virtual void makeCurrent(int index) = 0;
    virtual void setVisible(int index, bool visible) = 0;
    /// Both limits included, in any order.
    virtual void setVisibleRange(int from, int to, bool visible) = 0;
    /// The index of the curve under a point of the window; -1 for none, and in a display without rows or columns.
    virtual int pointedIndex(const QPoint &windowPoint) const = 0;
    /// With groups: the active spectrum when it is in the group with that row, else the group's first member.
    virtual int indexOfRow(int row) const = 0;
    virtual int rowOf(int index) const = 0;
    virtual bool isHidden(int index) const = 0;
    /// These spectra come first in the display, in this order; the others keep theirs behind them.
    virtual void move(const QVector<int> &indices) = 0;
    /// Indices in display order, the hidden ones left out.
    virtual QVector<int> visibleOrder() const = 0;
    virtual QVector<int> order() const = 0;
    virtual QColor color(int index) const = 0;
    virtual QString title(int index) const = 0;
    /// The value by which a series is ordered (a temperature, a time).
    virtual double arrayedValue(int index) const = 0;
    /// The factor over that of the active spectrum.
    virtual double relativeFactor(int index) const = 0;
    virtual double factor(int index) const = 0;
    /// The vertical offset less that of the active spectrum, in y units, with so many decimals.
    virtual QString offsetText(int index, int decimals) const = 0;
    /// Null for a spectrum that never had a class.
    virtual QString className(int index) const = 0;
    virtual QColor color2(int index) const = 0;
    /// A null name takes the class away as if there had never been one.
    virtual void setClassName(int index, const QString &name) = 0;
    virtual QVector<QColor> colors() const = 0;
    /// Puts the classes back and makes the colours anew.
    virtual void restoreClasses(const QMap<QString, TStackedClassProperties> &classes) = 0;
    virtual int colorMode() const = 0;
    virtual TStackedClassProperties classProperties(int index) const = 0;
    virtual void setClass(int index, const TStackedClassProperties &properties) = 0;
    virtual QMap<QString, TStackedClassProperties> classes() const = 0;
    virtual void setClasses(const QMap<QString, TStackedClassProperties> &classes) = 0;
    virtual void generateColors(const TStackedClassProperties &properties, const QVector<int> &indices) = 0;
    /// Makes the colours anew as under another colour setting, which is not kept.
    virtual void regenerate(int colorSetting) = 0;
    /// The classes in use, sorted.
    virtual QStringList classNames() const = 0;
    virtual QVector<int> reservedA() const { return {}; }
    /// Refused when there are fewer colours than spectra.
    virtual void setAllColors(const QVector<QColor> &colors) = 0;
    virtual void reservedB() {}
    /// Drops the properties of classes that no spectrum has.
    virtual void dropClasses() = 0;
    /// TStackColorSetting; hueSetting without an item.
    virtual int colorSetting() const = 0;
    virtual void setColorSetting(int setting) = 0;
    virtual void update() = 0;
    /// TStackedDisplayMode.
    virtual int displayMode() const = 0;
    virtual void setDisplayMode(int mode) = 0;
    /// Shows all rows in full, in a display with rows or columns.
    virtual void refit() = 0;
    virtual bool reservedC() const { return false; }
    virtual bool reservedD() const { return false; }
    /// How much of the horizontal axis can be seen, in axis units; 0 for any direction but 1.
    virtual double zoomShare(int direction) const = 0;
};
