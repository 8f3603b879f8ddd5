#include "TYrexChainCheck.h"

#include "TYrexProcDefaults.h"
#include "TYrexProcIds.h"
#include "TYrexProcLabels.h"

#include <QStringList>
#include <cmath>

namespace {

constexpr int cWidestWindow = 101;
constexpr int cHighestDerivativeDegree = 7; // the step cuts higher ones down to this

/// The degrees that make sense for an order of the derivative.
struct TOrderRule
{
    int fMinDegree;
    int fMaxDegree;
    int fWideFrom; // from this degree on the wider of the two windows is needed
    int fWindow;
    int fWideWindow;
};
constexpr TOrderRule cOrderRules[] = {{1, 4, 3, 3, 5}, {2, 5, 5, 5, 7}, {3, 6, 5, 5, 7}, {4, 5, 4, 7, 7}};

QString optionList(const TYrexProcKey &key)
{
    QStringList texts;
    for (const int id : key.fOptions)
        texts.append(QStringLiteral("%1 %2").arg(id).arg(TYrexProcLabels::sourceLabel(id)));
    return texts.join(QStringLiteral(", "));
}

QString rangeText(const TYrexProcKey &key)
{
    if (std::isinf(key.fMax))
        return QStringLiteral("at least %1").arg(key.fMin);
    return QStringLiteral("from %1 to %2").arg(key.fMin).arg(key.fMax);
}

int windowOf(int given)
{
    return given % 2 == 0 ? given + 1 : given;
}

int intOf(const QVariantMap &action, const char *key)
{
    return action.value(QLatin1String(key)).toInt();
}

QString derivativeProblem(const QVariantMap &action)
{
    const int order = intOf(action, "derivativeorder");
    const int degree = intOf(action, "derivativesgpolydeg");
    const int window = windowOf(intOf(action, "derivativesgkerlen"));
    if (order < 1 || order > int(std::size(cOrderRules)))
        return QStringLiteral("key \"derivativeorder\": %1 is no order that can be computed").arg(order);
    const TOrderRule &rule = cOrderRules[order - 1];
    if (degree < rule.fMinDegree || degree > rule.fMaxDegree)
        return QStringLiteral(
                   "key \"derivativesgpolydeg\": a derivative of order %1 takes a degree from %2 to %3, not %4")
            .arg(order)
            .arg(rule.fMinDegree)
            .arg(rule.fMaxDegree)
            .arg(degree);
    const int needed = degree >= rule.fWideFrom ? rule.fWideWindow : rule.fWindow;
    if (window < needed)
        return QStringLiteral("key \"derivativesgkerlen\": order %1 and degree %2 need a width of at least %3, not %4")
            .arg(order)
            .arg(degree)
            .arg(needed)
            .arg(window);
    return {};
}

QString smoothingProblem(const QVariantMap &action)
{
    const int degree = intOf(action, "sgsmoothinggpolydeg");
    const int window = windowOf(intOf(action, "sgsmoothingkerlen"));
    if (degree < window)
        return {};
    return QStringLiteral("key \"sgsmoothinggpolydeg\": the degree %1 must be below the window width %2")
        .arg(degree)
        .arg(window);
}

/// Savitzky-Golay coefficients exist for 0 <= order <= degree < window.
QString coefficientProblem(int window, int degree, int order)
{
    if (window < 0 || window > cWidestWindow)
        return QStringLiteral("a Savitzky-Golay window of %1 points").arg(window);
    if (order < 0 || order > degree || degree >= windowOf(window))
        return QStringLiteral("a Savitzky-Golay filter of order %1, degree %2 and width %3")
            .arg(order)
            .arg(degree)
            .arg(windowOf(window));
    return {};
}

} // namespace

QString TYrexChainCheck::valueProblem(const TYrexProcKey &key, const QVariant &value)
{
    if (value.type() != key.fDefault.type())
        return QStringLiteral("a value of the wrong type");
    if (key.isEnumerated() && !key.fOptions.contains(value.toInt()))
        return QStringLiteral("unknown option %1; known are %2").arg(value.toInt()).arg(optionList(key));
    if (value.type() != QVariant::Int && value.type() != QVariant::Double)
        return {};
    const double number = value.toDouble();
    if (!std::isfinite(number) || number < key.fMin || number > key.fMax)
        return QStringLiteral("%1 is out of range; allowed is %2").arg(number).arg(rangeText(key));
    return {};
}

QString TYrexChainCheck::combinationProblem(const QVariantMap &action)
{
    const int id = intOf(action, cKeyOpId);
    if (id == cProcDerivative && intOf(action, "derivativeapprox") == cDerivativeSavitzkyGolay)
        return derivativeProblem(action);
    if (id == cProcSmoothing && intOf(action, "smoothmethod") == cSmoothSavitzkyGolay)
        return smoothingProblem(action);
    return {};
}

QString TYrexChainCheck::fatalProblem(const QVariantMap &action)
{
    const int id = intOf(action, cKeyOpId);
    if (id == cProcDerivative && intOf(action, "derivativeapprox") == cDerivativeSavitzkyGolay)
        return coefficientProblem(intOf(action, "derivativesgkerlen"),
                                  qMin(intOf(action, "derivativesgpolydeg"), cHighestDerivativeDegree),
                                  intOf(action, "derivativeorder"));
    if (id == cProcSmoothing && intOf(action, "smoothmethod") == cSmoothSavitzkyGolay)
        return coefficientProblem(intOf(action, "sgsmoothingkerlen"), intOf(action, "sgsmoothinggpolydeg"), 0);
    return {};
}
