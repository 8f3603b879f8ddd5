#include "TYrexIntegrationRegion.h"

#include "utils/CommonUtils.h"

TYrexIntegrationRegion::TYrexIntegrationRegion(double from, double to, qint32 regionMode)
    : boundA(from)
    , boundB(to)
    , mode(regionMode)
    , id(Utils::Common::createUuid())
{
}

TYrexIntegrationRegion::TYrexIntegrationRegion(qint32 regionMode)
    : TYrexIntegrationRegion(0.0, 0.0, regionMode)
{
}

TYrexIntegrationRegion::TYrexIntegrationRegion()
    : TYrexIntegrationRegion(cManual)
{
}

TYrexIntegrationRegion::~TYrexIntegrationRegion() = default;

QVariantMap TYrexIntegrationRegion::toVariantMap(const QVariantMap &options) const
{
    Q_UNUSED(options)
    const QString modeText = mode == cManual ? QStringLiteral("Manual") : QStringLiteral("Auto");
    return {{QStringLiteral("BoundA"), boundA},
            {QStringLiteral("BoundB"), boundB},
            {QStringLiteral("UUID"), id.toByteArray()},
            {QStringLiteral("Mode"), modeText},
            {QStringLiteral("Area"), area},
            {QStringLiteral("Maximum"), maximum}};
}
