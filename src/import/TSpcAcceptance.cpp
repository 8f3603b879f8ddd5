#include "TSpcAcceptance.h"

#include "TBinaryFile.h"
#include "TSpcHeader.h"
#include "TSpcNames.h"

namespace {

constexpr int cMaxSubfiles = 100000;
constexpr double cMaxOldPoints = 1e6;
constexpr int cExperiments = 15;
constexpr quint32 cOpticalExperiments = 0x78B1; // bits 0, 4, 5, 7, 11 to 14
constexpr int cRamanShift = 13;                 // X type
constexpr int cFirstOtherXType = 4;

QString hex(quint8 value)
{
    return QStringLiteral("0x%1").arg(uint(value), 2, 16, QLatin1Char('0'));
}

QString named(int code, const QString &name)
{
    return name.isEmpty() || name == QLatin1String("-") ? QString::number(code)
                                                        : QStringLiteral("%1, %2,").arg(code).arg(name.trimmed());
}

QString experimentRefusal(quint8 experiment)
{
    return QStringLiteral("experiment type %1 at offset 2 is no optical spectrum")
        .arg(named(experiment, spcExperimentName(experiment)));
}

QString xTypeRefusal(const QString &what, quint8 xType, int offset)
{
    return QStringLiteral("%1 %2 at offset %3 is no axis of an optical spectrum")
        .arg(what, named(xType, spcXTypeName(xType)))
        .arg(offset);
}

/// The test that files of both generations have to pass; in old ones these bytes mean something else.
QString commonRefusal(quint8 experiment, quint8 xType)
{
    if (experiment == 3 || experiment == 9 || experiment == 10)
        return experimentRefusal(experiment);
    if (xType == 4 || xType == 6 || xType == 10)
        return xTypeRefusal(QStringLiteral("X type"), xType, SpcOffset::cNewXType);
    return QString();
}

QString newRefusal(const TSpcHeader &header)
{
    if (header.fExperiment == 0 && header.fXType >= cFirstOtherXType && header.fXType != cRamanShift)
        return xTypeRefusal(QStringLiteral("for experiment type 0 the X type"), header.fXType, SpcOffset::cNewXType);
    if ((header.fFlags & cSpcXFlags) == cSpcXFlags)
        return QStringLiteral("flags %1 at offset 0 tell of subfiles with a directory and X values of their own, "
                              "which are not read")
            .arg(hex(header.fFlags));
    if (header.fSubfiles >= cMaxSubfiles)
        return QStringLiteral("expected less than 100000 subfiles at offset 24, found %1").arg(header.fSubfiles);
    if (header.fExperiment >= cExperiments || !(cOpticalExperiments >> header.fExperiment & 1u))
        return experimentRefusal(header.fExperiment);
    return QString();
}

QString oldRefusal(const TSpcHeader &header)
{
    if (!(header.fPoints > 1.0 && header.fPoints < cMaxOldPoints))
        return QStringLiteral("expected between 1 and 1000000 points at offset 4, found %1").arg(header.fPoints);
    const bool optical = (header.fXType >= 1 && header.fXType <= 3) || header.fXType == cRamanShift;
    return optical ? QString() : xTypeRefusal(QStringLiteral("X type"), header.fXType, SpcOffset::cOldXType);
}

} // namespace

QString spcRefusal(const TBinaryFile &file)
{
    if (!file.isOpen())
        return QStringLiteral("the file cannot be opened");
    const TSpcHeader header = TSpcHeader::read(file);
    if (header.fVersion != cSpcNew && header.fVersion != cSpcOld)
        return QStringLiteral("expected the version 0x4b or 0x4d at offset 1, found %1").arg(hex(header.fVersion));
    QString common = commonRefusal(header.fExperiment, file.u8(SpcOffset::cNewXType));
    if (!common.isEmpty())
        return common;
    return header.fVersion == cSpcNew ? newRefusal(header) : oldRefusal(header);
}
