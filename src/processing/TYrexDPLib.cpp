#include "TYrexDPLib.h"

#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"

#include <QtAlgorithms>
#include <cmath>

namespace {

// an empty block, 8 doubles and int32s as written below, three strings and ids at their shortest, a colour
constexpr int cMinPeakSize = 12 + 5 * 8 + 3 * 4 + 8 + 4 + 16 + 1 + 16 + 4 + 11;

} // namespace

TYrexDPLib::TYrexDPPeak::TYrexDPPeak()
    : id(QUuid::createUuid())
{
}

void TYrexDPLib::readPeakList(TDataStream &stream, TYrexDPPeakList &list)
{
    Q_UNUSED(stream)
    Q_UNUSED(list)
    Q_UNUSED(cMinPeakSize)
}

void TYrexDPLib::writePeakList(TDataStream &stream, const TYrexDPPeakList &list)
{
    Q_UNUSED(stream)
    Q_UNUSED(list)
}

void TYrexDPLib::deleteAllPeaks(TYrexDPPeakList &list)
{
    qDeleteAll(list);
    list.clear();
}

void TYrexDPLib::deleteAutoPeaks(TYrexDPPeakList &list)
{
    for (int i = list.size() - 1; i >= 0; --i) {
        if (list.at(i)->flags & cAutoPicked)
            delete list.takeAt(i);
    }
}

int TYrexDPLib::indexOfId(const TYrexDPPeakList &list, const QUuid &id)
{
    for (int i = 0; i < list.size(); ++i) {
        if (list.at(i)->id == id)
            return i;
    }
    return -1;
}

bool TYrexDPLib::hasPeakAt(const TYrexDPPeakList &list, double position)
{
    for (const TYrexDPPeak *peak : list) {
        if (std::abs(peak->position - position) < cSamePeakDistance)
            return true;
    }
    return false;
}
