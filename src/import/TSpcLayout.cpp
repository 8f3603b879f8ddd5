#include "TSpcLayout.h"

#include "TBinaryFile.h"
#include "TSpcHeader.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int cFloatBytes = 4;

} // namespace

TSpcLayout TSpcLayout::read(const TBinaryFile &file, const TSpcHeader &header)
{
    TSpcLayout layout;
    layout.fPoints = header.fPoints;
    layout.fFormat = TSpcValueFormat::ofValues(header);
    if (header.fVersion == cSpcOld) {
        layout.fFirst = TSpcHeader::cOldSize - TSpcSubheader::cSize; // the old header ends with a subheader
        return layout;
    }
    layout.fSubfiles = std::max(1, header.fSubfiles);
    layout.fFirst = TSpcHeader::cNewSize + (header.hasXArray() ? cFloatBytes * qint64(header.fPoints) : 0);
    layout.fOwnX = layout.fSubfiles == 1 && (header.fFlags & cSpcOwnX);
    if (layout.fOwnX) {
        const TSpcSubheader own = TSpcSubheader::read(file, layout.fFirst);
        // writers leave the byte 0 in the subheaders of float files
        if (layout.fFormat.fExponent != TSpcHeader::cFloatExponent || own.fExponent != 0)
            layout.fFormat.fExponent = own.fExponent;
        if (own.fPoints != 0)
            layout.fPoints = own.fPoints;
    }
    return layout;
}

QString TSpcLayout::pointsProblem() const
{
    if (fPoints >= 0.0 && fPoints <= TSpcHeader::cMaxPoints)
        return QString();
    const qint64 offset = fOwnX ? fFirst + SpcOffset::cSubheaderPoints : SpcOffset::cPoints;
    return QStringLiteral("expected the number of points at offset %1, found %2").arg(offset).arg(fPoints);
}

int TSpcLayout::points() const
{
    return int(std::round(fPoints));
}

qint64 TSpcLayout::values(int index) const
{
    return subheader(index) + TSpcSubheader::cSize + (fOwnX ? cFloatBytes * qint64(storedPoints()) : 0);
}

qint64 TSpcLayout::stride() const
{
    return TSpcSubheader::cSize + qint64(storedPoints()) * fFormat.width();
}

int TSpcLayout::present(qint64 fileSize) const
{
    const qint64 begun = (fileSize - fFirst + stride() - 1) / stride();
    return int(std::clamp<qint64>(begun, 1, fSubfiles));
}
