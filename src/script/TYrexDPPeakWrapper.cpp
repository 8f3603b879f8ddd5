#include "TYrexDPPeakWrapper.h"

#include "script/ScriptUtils.h"

namespace {

constexpr int cDecimals = 3;

QScriptValue construct(QScriptContext *, QScriptEngine *engine)
{
    return engine->toScriptValue(new TYrexDPPeakWrapper(TYrexDPLib::TYrexDPPeak()));
}

} // namespace

TYrexDPPeakWrapper::TYrexDPPeakWrapper(const TYrexDPLib::TYrexDPPeak &peak, double width)
    : TWrapperTemplate(std::make_unique<TYrexDPLib::TYrexDPPeak>(peak))
    , fWidth(width)
{
}

void TYrexDPPeakWrapper::install(QScriptEngine *engine)
{
    Utils::Script::registerCustomType<TYrexDPPeakWrapper>(engine, "ZarnuDPPeak", construct, engine->newObject());
}

double TYrexDPPeakWrapper::center() const
{
    return wrapped()->position;
}

double TYrexDPPeakWrapper::intensity() const
{
    return wrapped()->intensity;
}

bool TYrexDPPeakWrapper::isPositive() const
{
    return wrapped()->positive;
}

bool TYrexDPPeakWrapper::isAuto() const
{
    return (wrapped()->flags & TYrexDPLib::cAutoPicked) != 0;
}

QString TYrexDPPeakWrapper::annotation() const
{
    return wrapped()->annotation;
}

QString TYrexDPPeakWrapper::id() const
{
    return wrapped()->id.toString();
}

QString TYrexDPPeakWrapper::toString() const
{
    return QStringLiteral("\tCenter %1 Height %2").arg(center(), 0, 'E', cDecimals).arg(intensity(), 0, 'E', cDecimals);
}
