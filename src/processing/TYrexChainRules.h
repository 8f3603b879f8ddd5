#pragma once

#include <QPair>
#include <QString>
#include <QVariantList>
#include <QVariantMap>
#include <QVector>

/// What may be done with a chain and its actions in the processing dock, and what goes with what. Rows are places in
/// the chain; a row that is not there is passed over.
namespace TYrexChainRules {

/// Whether copies of these rows may stand beside them: not of peak picking, of the multipoint baseline and of the
/// conversion of units. False for no rows.
bool canDuplicate(const QVariantList &chain, const QVector<int> &rows);
/// Whether these rows may go: of each kind that a chain always has another one has to stay. False for no rows.
bool canRemove(const QVariantList &chain, const QVector<int> &rows);
void remove(QVariantList &chain, QVector<int> rows);
/// Each of the rows stands twice in a row.
void duplicate(QVariantList &chain, QVector<int> rows);
/// False, with nothing changed, when there is no such place.
bool move(QVariantList &chain, int from, int to);

/// Whether an action needs two or more visible spectra.
bool needsStack(int action);
/// Such actions take no part from now on.
void switchOffStackActions(QVariantList &chain);
/// The row of an applied baseline that is only shown, so that nothing behind it runs; -1 for none.
int shownBaseline(const QVariantList &chain);
/// The rows in which two chains of equal actions differ; all rows when their actions are not the same.
QVector<int> differingRows(const QVariantList &chain, const QVariantList &other);

/// Lowest and highest degree of the polynomial for the derivative of that order by Savitzky-Golay.
QPair<int, int> derivativeDegrees(int order);
/// The narrowest window in points for that order and degree.
int derivativeWindow(int order, int degree);
/// The highest order of a method ("derivativeapprox").
int derivativeOrders(int method);
/// The narrowest window in points for smoothing by a polynomial of that degree.
int smoothingWindow(int degree);

/// Whether there is a conversion of intensities from that y unit.
bool isConvertible(int yUnit);
/// The y unit of the axis once the chain has run on a spectrum that shows `yUnit` now: arbitrary (50) with an action
/// whose result has no physical unit, else what the last conversion gives.
int shownYUnit(const QVariantList &chain, int yUnit);
/// The y unit with which a run of the whole chain ends on a spectrum that was read in `origYUnit`; conversions that
/// there are not from that unit change nothing.
int endYUnit(const QVariantList &chain, int origYUnit);

/// The values of an action in one line, as label or key and value; empty for an action without any.
QString summary(const QVariantMap &action);
/// The label of a key; the key itself where it has none.
QString keyLabel(const QString &key, const QVariantMap &action);
/// A value as it is read: the label of an option, yes or no, the shortest form of a number, the length of a list.
QString valueText(const QString &key, const QVariant &value);

} // namespace TYrexChainRules
