#include "utils/CommonUtils.h"

#include "utils/TFileFormat.h"

namespace {

struct TUuidSeries
{
    QByteArray fSeed; // empty: random ids
    quint64 fCount = 0;
};

TUuidSeries &uuidSeries()
{
    static TUuidSeries theSeries;
    return theSeries;
}

QDateTime &fixedTime()
{
    static QDateTime theTime;
    return theTime;
}

// the name space of the ids made here
const QUuid cUuidSpace(0x6f0f63cb, 0x7a3e, 0x4d0a, 0x9b, 0x0e, 0x52, 0x1c, 0xd4, 0x8a, 0x7f, 0x35);

} // namespace

namespace Utils {
namespace Common {

bool has_no_error(int code)
{
    return code == 0;
}

QString fileFormatToStr(int format)
{
    switch (format) {
    case ::Common::Types::cFormatJCAMP:
        return QStringLiteral("JCAMP-DX");
    case ::Common::Types::cFormatCSV:
        return QStringLiteral("CSV");
    case ::Common::Types::cFormatSPC:
        return QStringLiteral("SPC");
    case ::Common::Types::cFormatOMNIC:
        return QStringLiteral("OMNIC");
    case ::Common::Types::cFormatOPUS:
        return QStringLiteral("OPUS");
    case ::Common::Types::cFormatSP:
        return QStringLiteral("SP");
    case ::Common::Types::cFormatSERSBT:
        return QStringLiteral("SERSBT");
    default:
        return QStringLiteral("Unknown");
    }
}

QUuid createUuid()
{
    TUuidSeries &series = uuidSeries();
    if (series.fSeed.isEmpty())
        return QUuid::createUuid();
    return QUuid::createUuidV5(cUuidSpace, series.fSeed + ':' + QByteArray::number(++series.fCount));
}

void setDeterministic(const QByteArray &seed)
{
    uuidSeries() = TUuidSeries{seed, 0};
}

TUuidScope::TUuidScope(const QByteArray &seed)
    : fSeed(uuidSeries().fSeed)
    , fCount(uuidSeries().fCount)
{
    setDeterministic(seed);
}

TUuidScope::~TUuidScope()
{
    uuidSeries() = TUuidSeries{fSeed, fCount};
}

QDateTime now()
{
    bool ok = false;
    const qint64 epoch = qgetenv("SOURCE_DATE_EPOCH").toLongLong(&ok);
    if (ok)
        return QDateTime::fromSecsSinceEpoch(epoch, Qt::UTC);
    return fixedTime().isValid() ? fixedTime() : QDateTime::currentDateTimeUtc();
}

void setFixedTime(const QDateTime &time)
{
    fixedTime() = time.toUTC();
}

} // namespace Common
} // namespace Utils
