#include "TYrexDPLib.h"

#include "stream/StreamUtils.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"
#include "utils/CommonUtils.h"

#include <QtAlgorithms>
#include <cmath>

namespace {

// bytes of a peak with empty texts: an empty block, six doubles, three int32, two texts, two ids, a flag, a colour
constexpr int cMinPeakSize = 12 + 6 * 8 + 3 * 4 + 2 * 4 + 2 * 16 + 1 + 11;

void writeEmptyBlock(TDataStream &stream)
{
    TDataStreamAdaptor empty(stream);
    empty.startStore();
    empty.endStore();
}

void writePeak(TDataStream &stream, const TYrexDPLib::TYrexDPPeak &peak)
{
    writeEmptyBlock(stream);
    stream << peak.position << peak.width << peak.intensity << peak.reservedA << peak.reservedB << peak.reservedC
           << peak.reservedE << peak.flags << peak.reservedD << peak.annotation << peak.id << peak.positive
           << peak.referenceId << peak.text << peak.color;
}

void readPeak(TDataStream &stream, TYrexDPLib::TYrexDPPeak &peak)
{
    TDataStreamAdaptor(stream).skipData();
    stream >> peak.position >> peak.width >> peak.intensity >> peak.reservedA >> peak.reservedB >> peak.reservedC >>
        peak.reservedE >> peak.flags >> peak.reservedD >> peak.annotation >> peak.id >> peak.positive >>
        peak.referenceId >> peak.text;
    Utils::Stream::read(stream, peak.color);
}

} // namespace

TYrexDPLib::TYrexDPPeak::TYrexDPPeak()
    : id(Utils::Common::createUuid())
{
}

void TYrexDPLib::readPeakList(TDataStream &stream, TYrexDPPeakList &list)
{
    TDataStreamAdaptor(stream).skipData();
    TDataStreamAdaptor outer(stream);
    if (!outer.hasData())
        return;
    TYrexDPPeakList read;
    const int count = stream.readCount(cMinPeakSize);
    TDataStreamAdaptor inner(stream);
    if (inner.hasData()) {
        for (int i = 0; i < count && stream.isGood(); ++i) {
            read.append(new TYrexDPPeak);
            readPeak(stream, *read.last());
        }
    }
    inner.skipData();
    outer.skipData();
    if (stream.isGood())
        list.append(read);
    else
        deleteAllPeaks(read);
}

void TYrexDPLib::writePeakList(TDataStream &stream, const TYrexDPPeakList &list)
{
    writeEmptyBlock(stream);
    TDataStreamAdaptor outer(stream);
    outer.startStore();
    stream << qint32(list.size());
    TDataStreamAdaptor inner(stream);
    inner.startStore();
    for (const TYrexDPPeak *peak : list)
        writePeak(stream, *peak);
    inner.endStore();
    outer.endStore();
}

void TYrexDPLib::deleteAllPeaks(TYrexDPPeakList &list)
{
    qDeleteAll(list);
    list.clear();
}

void TYrexDPLib::deleteAutoPeaks(TYrexDPPeakList &list)
{
    for (int i = list.size() - 1; i >= 0; --i) {
        if (!(list.at(i)->flags & cAutoPicked))
            continue;
        if (list.at(i)->annotation.isEmpty())
            delete list.takeAt(i);
        else
            list.at(i)->flags &= ~cAutoPicked;
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
