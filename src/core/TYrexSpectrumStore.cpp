// The persistence of TYrexSpectrum. The order of the items is part of the document file format.
#include "TYrexSpectrum.h"

#include "TYrexProcParams.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"

namespace {

void storeEmptyBlock(TDataStream &stream)
{
    TDataStreamAdaptor block(stream);
    block.startStore();
    block.endStore();
}

/// Lets equal generations share one array again, as they did before they were stored.
void shareEqual(const QVector<double> &kept, QVector<double> &other)
{
    if (kept.constData() != other.constData() && kept == other)
        other = kept;
}

} // namespace

void TYrexSpectrum::storeGenerations(TDataStream &stream) const
{
    TDataStreamAdaptor block(stream);
    block.startStore();
    stream << fOrgDataModified;
    stream.writeDoubles(fAbsOrgData);
    stream.writeDoubles(fOrgData);
    stream.writeDoubles(fData);
    stream << fFirstX << fLastX << fXFactor << fFirstY << fYFactor;
    stream << fOrigXUnits << fOrigYUnits << fXUnits << fYUnits << fPointCount;
    block.endStore();
}

void TYrexSpectrum::loadGenerations(TDataStream &stream)
{
    TDataStreamAdaptor block(stream);
    if (block.hasData()) {
        stream >> fOrgDataModified;
        stream.readDoubles(fAbsOrgData);
        stream.readDoubles(fOrgData);
        stream.readDoubles(fData);
        stream >> fFirstX >> fLastX >> fXFactor >> fFirstY >> fYFactor;
        stream >> fOrigXUnits >> fOrigYUnits >> fXUnits >> fYUnits >> fPointCount;
        // every step of a chain walks up to the point count, so it never exceeds what is there; data that were cleared
        // come back with a run, from the original
        const int held = fData.isEmpty() ? fOrgData.size() : fData.size();
        if (fPointCount < 0 || fPointCount > held)
            fPointCount = held;
        if (!fOrgData.isEmpty() && fOrgData.size() < fPointCount)
            fOrgData.resize(fPointCount);
        shareEqual(fData, fOrgData);
        shareEqual(fOrgData, fAbsOrgData);
    }
    block.skipData();
}

void TYrexSpectrum::store(TDataStream &stream) const
{
    storeGenerations(stream);
    stream << fParamsBundle;
    stream << fParam1007Text << fFileFormat << fDateText;
    fParams.store(stream);
    stream << fReservedFlagA << fReservedA << fReservedB;
    {
        TDataStreamAdaptor origin(stream); // empty in older documents, and for what came alone
        origin.startStore();
        if (fFileNumber > 0)
            stream << fFileNumber;
        origin.endStore();
    }
    stream << fReservedFlagB << fReservedC;
    {
        // what a later run needs beside the chain; empty in older documents, and where there is nothing of it
        const bool hasFigures = fMscCoefficients[0] != 0.0 || fMscCoefficients[1] != 0.0 || fPqnFactor != 1.0;
        TDataStreamAdaptor forRuns(stream);
        forRuns.startStore();
        if (fTouched || hasFigures)
            stream << fTouched;
        if (hasFigures)
            stream << fMscCoefficients[0] << fMscCoefficients[1] << fPqnFactor;
        forRuns.endStore();
    }
    stream << fSeriesValue;
    fProcParams.store(stream);
    TYrexDPLib::writePeakList(stream, fPeaks);
    TDataStreamAdaptor block(stream);
    block.startStore();
    storeEmptyBlock(stream);
    fIntegrals->store(stream);
    block.endStore();
}

void TYrexSpectrum::load(TDataStream &stream)
{
    loadGenerations(stream);
    stream >> fParamsBundle;
    stream >> fParam1007Text >> fFileFormat;
    if (!stream.isGood()) // a stream that ends here gives 0
        fFileFormat = cNoFormat;
    stream >> fDateText;
    fParamsBundle.setFileFormat(fFileFormat);
    fParams.load(stream);
    stream >> fReservedFlagA >> fReservedA >> fReservedB;
    fFileNumber = 0;
    {
        TDataStreamAdaptor origin(stream);
        if (origin.hasData())
            stream >> fFileNumber;
        fFileNumber = qMax(0, fFileNumber);
        origin.skipData();
    }
    stream >> fReservedFlagB >> fReservedC;
    if (!stream.isGood())
        fReservedC = 1.0;
    fTouched = false;
    {
        TDataStreamAdaptor forRuns(stream);
        if (forRuns.hasData())
            stream >> fTouched;
        setMscCoefficients(0.0, 0.0);
        fPqnFactor = 1.0;
        if (forRuns.hasData())
            stream >> fMscCoefficients[0] >> fMscCoefficients[1] >> fPqnFactor;
        forRuns.skipData();
    }
    stream >> fSeriesValue;
    fProcParams.load(stream);
    TYrexDPLib::deleteAllPeaks(fPeaks);
    TYrexDPLib::readPeakList(stream, fPeaks);
    fIntegrals->clear();
    TDataStreamAdaptor block(stream);
    if (block.hasData()) {
        TDataStreamAdaptor(stream).skipData();
        fIntegrals->load(stream);
    }
    block.skipData();
    fTitle = title();
}

std::unique_ptr<TYrexSpectrum> TYrexSpectrum::clone() const
{
    QByteArray bytes;
    {
        TDataStream out(&bytes, QIODevice::WriteOnly);
        store(out);
    }
    auto copy = std::make_unique<TYrexSpectrum>();
    TDataStream in(bytes);
    copy->load(in);
    return copy;
}
