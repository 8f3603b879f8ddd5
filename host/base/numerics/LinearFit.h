#pragma once

#include <QVector>

/// A straight line through points, and how well it runs through them.
struct TLinearFit
{
    bool isValid = false;
    double slope = 0.0;
    double intercept = 0.0;     // 0 for a line through zero
    double r2 = 0.0;            // 1 for points that all stand on the line
    double standardError = 0.0; // of the estimate, in units of y; 0 for as many points as the line has parameters
    int count = 0;              // points that were used
    QVector<double> residuals;  // y less that of the line; NaN for a point that was not used

    double at(double x) const { return intercept + slope * x; }
};

namespace LinearFit {

enum TForm { cLine, cThroughZero };

/// The line of least squares of y over x. Points of which a number is not finite are passed over. Not valid for fewer
/// points than the line has parameters, for equal x (all 0 for a line through zero), and for lists of unequal lengths.
///
/// The line: Draper, Smith, Applied Regression Analysis, 3rd edition, chapter 1, doi 10.1002/9781118625590. The line
/// through zero, whose r2 compares with y = 0 instead of with the mean: Eisenhauer, Teaching Statistics 25 (2003) 76,
/// doi 10.1111/1467-9639.00136.
TLinearFit fit(const QVector<double> &x, const QVector<double> &y, TForm form);

} // namespace LinearFit
