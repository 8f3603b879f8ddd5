#include "params/TParamNames.h"

#include "params/TSpectrumParam.h"

#include <QCoreApplication>
#include <algorithm>
#include <cstring>
#include <iterator>

namespace {

constexpr int cT = TSpectrumParam::cText;
constexpr int cD = TSpectrumParam::cDouble;
constexpr int cI = TSpectrumParam::cInteger;

// Ascending by id. What instruments write as free text ("4 cm-1") stays text whatever its meaning.
const TParamName cParamNames[] = {
    {5, cD, false, "AcqTime", QT_TRANSLATE_NOOP("TSpectrumParam", "Acquisition Time")},
    {13, cD, true, "SeriesValue", QT_TRANSLATE_NOOP("TSpectrumParam", "Series Value")},
    {501, cI, true, "OriginalSize", QT_TRANSLATE_NOOP("TSpectrumParam", "Original Size")},
    {502, cI, true, "PointCount", QT_TRANSLATE_NOOP("TSpectrumParam", "Number of Points")},
    {1001, cT, false, "Title", QT_TRANSLATE_NOOP("TSpectrumParam", "Title")},
    {1002, cT, false, "Origin", QT_TRANSLATE_NOOP("TSpectrumParam", "Origin")},
    {1003, cT, false, "Owner", QT_TRANSLATE_NOOP("TSpectrumParam", "Owner")},
    {1007, cT, false, "Description", QT_TRANSLATE_NOOP("TSpectrumParam", "Description")},
    {1008, cT, false, "Date", QT_TRANSLATE_NOOP("TSpectrumParam", "Date")},
    {1009, cT, true, "ModificationDate", QT_TRANSLATE_NOOP("TSpectrumParam", "Modification Date")},
    {1010, cT, false, "Operator", QT_TRANSLATE_NOOP("TSpectrumParam", "Operator")},
    {1011, cT, true, "Instrument", QT_TRANSLATE_NOOP("TSpectrumParam", "Instrument")},
    {1012, cT, false, "Comment", QT_TRANSLATE_NOOP("TSpectrumParam", "Comment")},
    {1015, cT, false, "Class", QT_TRANSLATE_NOOP("TSpectrumParam", "Class")},
    {1020, cT, true, "DataType", QT_TRANSLATE_NOOP("TSpectrumParam", "Data Type")},
    {1022, cT, true, "History", QT_TRANSLATE_NOOP("TSpectrumParam", "History")},
    {1023, cT, true, "OriginalName", QT_TRANSLATE_NOOP("TSpectrumParam", "Original Name")},
    {2000, cT, false, "Experiment", QT_TRANSLATE_NOOP("TSpectrumParam", "Experiment")},
    {2001, cT, true, "XUnits", QT_TRANSLATE_NOOP("TSpectrumParam", "X Units")},
    {2002, cT, true, "YUnits", QT_TRANSLATE_NOOP("TSpectrumParam", "Y Units")},
    {2003, cT, false, "OrigXUnits", QT_TRANSLATE_NOOP("TSpectrumParam", "Original X Units")},
    {2004, cT, false, "OrigYUnits", QT_TRANSLATE_NOOP("TSpectrumParam", "Original Y Units")},
    {2020, cT, true, "Resolution", QT_TRANSLATE_NOOP("TSpectrumParam", "Resolution")},
    {2021, cT, true, "Name", QT_TRANSLATE_NOOP("TSpectrumParam", "Name")},
    {2022, cT, true, "Memo", QT_TRANSLATE_NOOP("TSpectrumParam", "Memo")},
    {2023, cT, true, "LogComment", QT_TRANSLATE_NOOP("TSpectrumParam", "Log Comment")},
    {2024, cT, true, "User", QT_TRANSLATE_NOOP("TSpectrumParam", "User")},
    {2025, cT, true, "Model", QT_TRANSLATE_NOOP("TSpectrumParam", "Model")},
    {2026, cT, true, "Scans", QT_TRANSLATE_NOOP("TSpectrumParam", "Scans")},
    {2027, cT, true, "BackgroundScans", QT_TRANSLATE_NOOP("TSpectrumParam", "Background Scans")},
    {2028, cT, true, "BackgroundName", QT_TRANSLATE_NOOP("TSpectrumParam", "Background Name")},
    {2029, cT, true, "LaserWavenumber", QT_TRANSLATE_NOOP("TSpectrumParam", "Laser Wavenumber")},
    {2030, cT, true, "RamanFrequency", QT_TRANSLATE_NOOP("TSpectrumParam", "Raman Frequency")},
    {2031, cT, true, "RamanPower", QT_TRANSLATE_NOOP("TSpectrumParam", "Raman Power")},
    {2032, cT, true, "Detector", QT_TRANSLATE_NOOP("TSpectrumParam", "Detector")},
    {2033, cT, true, "Source", QT_TRANSLATE_NOOP("TSpectrumParam", "Source")},
    {2034, cT, true, "BeamSplitter", QT_TRANSLATE_NOOP("TSpectrumParam", "Beam Splitter")},
    {2035, cT, true, "Phase", QT_TRANSLATE_NOOP("TSpectrumParam", "Phase")},
    {2036, cT, true, "Speed", QT_TRANSLATE_NOOP("TSpectrumParam", "Speed")},
    {2037, cT, true, "Gain", QT_TRANSLATE_NOOP("TSpectrumParam", "Gain")},
    {2038, cT, true, "HighPass", QT_TRANSLATE_NOOP("TSpectrumParam", "High Pass Filter")},
    {2039, cT, true, "LowPass", QT_TRANSLATE_NOOP("TSpectrumParam", "Low Pass Filter")},
    {2041, cT, true, "ResolutionText", QT_TRANSLATE_NOOP("TSpectrumParam", "Resolution Text")},
    {2042, cT, true, "SourceText", QT_TRANSLATE_NOOP("TSpectrumParam", "Source Text")},
    {2043, cD, true, "Z", QT_TRANSLATE_NOOP("TSpectrumParam", "Z Value")},
    {2044, cD, true, "NextZ", QT_TRANSLATE_NOOP("TSpectrumParam", "Next Z Value")},
    {2045, cD, true, "Noise", QT_TRANSLATE_NOOP("TSpectrumParam", "Noise")},
    {2046, cD, true, "W", QT_TRANSLATE_NOOP("TSpectrumParam", "W Value")},
    {2047, cI, true, "SubfileIndex", QT_TRANSLATE_NOOP("TSpectrumParam", "Subfile Index")},
    {4600, cT, true, "AnalysisDate", QT_TRANSLATE_NOOP("TSpectrumParam", "Analysis Date")},
    {4601, cT, true, "ImageName", QT_TRANSLATE_NOOP("TSpectrumParam", "Image Name")},
    {4602, cT, true, "SerialNumber", QT_TRANSLATE_NOOP("TSpectrumParam", "Serial Number")},
    {4603, cT, true, "SoftwareVersion", QT_TRANSLATE_NOOP("TSpectrumParam", "Software Version")},
    {4604, cT, true, "Accumulations", QT_TRANSLATE_NOOP("TSpectrumParam", "Accumulations")},
    {4605, cT, true, "Detector", QT_TRANSLATE_NOOP("TSpectrumParam", "Detector")},
    {4606, cT, true, "Source", QT_TRANSLATE_NOOP("TSpectrumParam", "Source")},
    {4607, cT, true, "BeamSplitter", QT_TRANSLATE_NOOP("TSpectrumParam", "Beam Splitter")},
    {4608, cT, true, "Apodization", QT_TRANSLATE_NOOP("TSpectrumParam", "Apodization")},
    {4609, cT, true, "SpectrumType", QT_TRANSLATE_NOOP("TSpectrumParam", "Spectrum Type")},
    {4610, cT, true, "BeamType", QT_TRANSLATE_NOOP("TSpectrumParam", "Beam Type")},
    {4611, cT, true, "PhaseCorrection", QT_TRANSLATE_NOOP("TSpectrumParam", "Phase Correction")},
    {4612, cT, true, "IRAccessory", QT_TRANSLATE_NOOP("TSpectrumParam", "IR Accessory")},
    {4613, cT, true, "IgramType", QT_TRANSLATE_NOOP("TSpectrumParam", "Interferogram Type")},
    {4614, cT, true, "ScanDirection", QT_TRANSLATE_NOOP("TSpectrumParam", "Scan Direction")},
    {4615, cT, true, "BackgroundScans", QT_TRANSLATE_NOOP("TSpectrumParam", "Background Scans")},
};

} // namespace

const TParamName *paramNameOf(int id)
{
    const auto end = std::end(cParamNames);
    const auto row = std::lower_bound(std::begin(cParamNames), end, id,
                                      [](const TParamName &name, int wanted) { return name.fId < wanted; });
    return row != end && row->fId == id ? row : nullptr;
}

int paramIdOf(const char *name)
{
    for (const TParamName &row : cParamNames) {
        if (std::strcmp(row.fName, name) == 0)
            return row.fId;
    }
    return 0;
}
