#include "TYrexIntegralWrapper.h"

#include "script/ScriptUtils.h"

#include <QScriptContext>
#include <algorithm>
#include <cmath>
#include <limits>

using namespace Utils::Script;

namespace {

constexpr double cNothing = std::numeric_limits<double>::quiet_NaN();

QScriptValue construct(QScriptContext *context, QScriptEngine *engine)
{
    if (context->argumentCount() != 2)
        return throwError(context, cWrongCount);
    const QScriptValue from = context->argument(0);
    const QScriptValue to = context->argument(1);
    if (!from.isNumber() || !to.isNumber() || !std::isfinite(from.toNumber()) || !std::isfinite(to.toNumber()))
        return throwError(context, cWrongType);
    const TYrexIntegrationRegion region(from.toNumber(), to.toNumber(), TYrexIntegrationRegion::cManual);
    return engine->toScriptValue(new TYrexIntegralWrapper(region));
}

} // namespace

TYrexIntegralWrapper::TYrexIntegralWrapper(const TYrexIntegrationRegion &region)
    : TWrapperTemplate(std::make_unique<TYrexIntegrationRegion>(region))
{
}

TYrexIntegralWrapper::TYrexIntegralWrapper(const TFinder &finder, const TNorm &norm)
    : TWrapperTemplate(finder)
    , fNorm(norm)
{
}

void TYrexIntegralWrapper::install(QScriptEngine *engine)
{
    registerCustomType<TYrexIntegralWrapper>(engine, "ZarnuIntegral", construct, engine->newObject());
}

bool TYrexIntegralWrapper::isValid() const
{
    return wrapped();
}

QString TYrexIntegralWrapper::id() const
{
    const TYrexIntegrationRegion *region = wrapped();
    return region ? region->id.toString() : QString();
}

double TYrexIntegralWrapper::area() const
{
    const TYrexIntegrationRegion *region = wrapped();
    return region ? region->area : cNothing;
}

bool TYrexIntegralWrapper::isReference() const
{
    const TYrexIntegrationRegion *region = wrapped();
    return region && region->reference;
}

double TYrexIntegralWrapper::integralValue() const
{
    return integralValue(fNorm ? fNorm() : 1.0);
}

double TYrexIntegralWrapper::integralValue(double aNorm) const
{
    const TYrexIntegrationRegion *region = wrapped();
    return region ? std::fabs(region->area) / aNorm : cNothing;
}

double TYrexIntegralWrapper::rangeMin() const
{
    const TYrexIntegrationRegion *region = wrapped(); // looked up once: each look may give another
    return region ? std::min(region->boundA, region->boundB) : cNothing;
}

double TYrexIntegralWrapper::rangeMax() const
{
    const TYrexIntegrationRegion *region = wrapped();
    return region ? std::max(region->boundA, region->boundB) : cNothing;
}

QString TYrexIntegralWrapper::toString() const
{
    return QStringLiteral("Integral (uuid=%1, range=[%2,%3], value=%4)")
        .arg(id())
        .arg(rangeMin())
        .arg(rangeMax())
        .arg(integralValue());
}
