#pragma once

#include "plot/TRange.h"
#include <QString>
#include <QStringList>
#include <QVector>
#include <functional>

/// How the numbers of an axis are written.
enum TNumberForm {
    autoNumbers = 0,
    fixedNumbers = 1,     // a fixed number of decimals
    scientificNumbers = 2 // always with a power of ten at the axis' end
};

/// Ticks and numbers of one axis, computed from its scale and the room that there is.
///
/// Steps are 1, 2, 2.5 or 5 times a power of ten; 3 to 10 numbers, at most one per 1.8 label widths; minor ticks
/// between them: 4, or 3 for a step of 2. All numbers of an axis have the same decimals. Beyond 1e5 and under 1e-3 a
/// power of ten is taken out of the numbers and stands at the axis' end.
class TAxisTicks
{
public:
    struct TOptions
    {
        double step = 0.0;   // 0: chosen
        int minorCount = -1; // between two numbers; -1: chosen
        int numberForm = autoNumbers;
        int decimals = 2; // of fixedNumbers
    };
    static constexpr int cMinNumbers = 3;
    static constexpr int cMaxNumbers = 10;

    TAxisTicks() = default;
    /// `scale` in axis units, any direction; `length` of the axis in canvas units; `labelExtent` answers the size of a
    /// number along the axis in the same unit. A scale without a span that numbers can tell apart gives no ticks.
    TAxisTicks(const TRange &scale, double length, const std::function<double(const QString &)> &labelExtent,
               const TOptions &options);
    TAxisTicks(const TRange &scale, double length, const std::function<double(const QString &)> &labelExtent)
        : TAxisTicks(scale, length, labelExtent, TOptions())
    {
    }

    /// Values that get a number, ascending.
    const QVector<double> &major() const { return fMajor; }
    /// Values of the ticks between them, ascending.
    const QVector<double> &minor() const { return fMinor; }
    /// The numbers, one per major tick, already without the power of ten.
    const QStringList &labels() const { return fLabels; }
    /// The power of ten that was taken out of the numbers; 0 for none.
    int exponent() const { return fExponent; }
    /// That power for the typesetter ("×10^4"); empty for none.
    QString exponentText() const;
    double step() const { return fStep; }

    /// A number with that many decimals, U+2212 as its minus, never a negative zero.
    static QString number(double value, int decimals);

private:
    struct TStep
    {
        double mantissa;
        int power;
        double value() const;
        double multiple(qint64 i) const;
        int decimals() const;
    };
    TStep chooseStep(const TRange &scale, double length, const std::function<double(const QString &)> &labelExtent,
                     const TOptions &options);
    void makeNumbers(const TRange &scale, const TStep &step, const TOptions &options);
    void makeMinor(const TRange &scale, const TStep &step, const TOptions &options);

    QVector<double> fMajor;
    QVector<double> fMinor;
    QStringList fLabels;
    int fExponent = 0;
    double fStep = 0.0;
};
