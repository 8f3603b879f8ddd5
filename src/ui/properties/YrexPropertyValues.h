#pragma once

#include <QString>
#include <QStringList>
#include <QVariantMap>
#include <QVector>

class TCanvasYrexSpectrum;

/// Sets of values of the fields of TYrexSpectrumPropertyFields.
namespace YrexPropertyValues {

/// What an item like this one begins with when no defaults were saved. Titles of axes that come from the data are not
/// among them.
QVariantMap builtIn(const TCanvasYrexSpectrum &item);
/// The looks of an item that make sense on others: titles of axes only where the user wrote them, the stack only of a
/// stack, no limits of ticks.
QVariantMap formatOf(const TCanvasYrexSpectrum &item);

/// The looks of an item as defaults of new ones: what it begins with by its data is not among them.
QVariantMap defaultsOf(const TCanvasYrexSpectrum &item);

/// A set for a purpose.
struct TPreset
{
    const char *fName;
    QVariantMap fFields;
    const char *fPageAction; // which gives the page its size; empty for none
};
const QVector<TPreset> &presets();

} // namespace YrexPropertyValues
