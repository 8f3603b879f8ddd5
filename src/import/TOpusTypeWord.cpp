#include "TOpusTypeWord.h"

#include <QStringList>
#include <algorithm>
#include <iterator>

namespace {

struct TDataTypeRow
{
    const char *fLetters; // no pair is part of another name
    const char *fMeaning;
    int fNumber;
    bool fSpectrum;
};

constexpr TDataTypeRow cDataTypes[] = {
    {"Sc", "single-channel spectrum", 1, true},
    {"Ig", "interferogram", 2, false},
    {"Ph", "phase", 3, false},
    {"Ab", "absorbance", 4, true},
    {"Tr", "transmittance", 5, true},
    {"Km", "Kubelka-Munk", 6, true},
    {"Tc", "trace", 7, false},
    {"Gi", "GC series of interferograms", 8, false},
    {"Gs", "GC series of spectra", 9, false},
    {"Rm", "Raman", 10, true},
    {"Em", "emission", 11, true},
    {"Re", "reflectance", 12, true},
    {"Di", "directory", 13, false},
    {"Pw", "power", 14, false},
    {"Lr", "log reflectance", 15, true},
    {"At", "ATR", 16, true},
    {"Pa", "photoacoustic", 17, true},
    {"Ax", "arithmetic result, transmittance-like", 18, true},
    {"Ay", "arithmetic result, absorbance-like", 19, true},
    {"Mt", "match", 22, false},
};

const TDataTypeRow *dataTypeRow(int number)
{
    const auto *row = std::find_if(std::begin(cDataTypes), std::end(cDataTypes),
                                   [number](const TDataTypeRow &one) { return one.fNumber == number; });
    return row == std::end(cDataTypes) ? nullptr : row;
}

QString kindName(int kind)
{
    static const QStringList cNames = {"Data",   "Data Status", "Instrument", "Acquisition",   "Fourier", "Plot",
                                       "Optics", "GC",          "Library",    "Communication", "Sample",  "Lab"};
    return cNames.value(kind, QStringLiteral("Parameters %1").arg(kind));
}

QString reportName(int extension)
{
    switch (extension) {
    case TOpusTypeWord::cInfo:
        return QStringLiteral("Info");
    case TOpusTypeWord::cSeries:
        return QStringLiteral("Series");
    case TOpusTypeWord::cCompact:
        return QStringLiteral("Compact Data");
    case 9:
        return QStringLiteral("Search Report");
    case 11:
        return QStringLiteral("Visual Image");
    case 12:
        return QStringLiteral("Quality Test Report");
    case TOpusTypeWord::cHistory:
        return QStringLiteral("History");
    case 14:
        return QStringLiteral("Quantification Report");
    case 20:
        return QStringLiteral("Bitmap");
    case 45:
        return QStringLiteral("Multi-Evaluation Report");
    case 50:
        return QStringLiteral("Categories");
    default:
        return QStringLiteral("Report %1").arg(extension);
    }
}

} // namespace

bool TOpusTypeWord::isData() const
{
    const int ext = extension();
    return kind() == cNotParameters && dataType() != 0 && dataType() != cDirectory &&
           (ext == cPlain || ext == cSeries || ext == cCompact);
}

bool TOpusTypeWord::isSpectrumType() const
{
    const TDataTypeRow *row = dataTypeRow(dataType());
    return row && row->fSpectrum;
}

QString TOpusTypeWord::dataName() const
{
    static const char *cChannels[] = {"", "Sm", "Rf", "Ra"};
    const TDataTypeRow *row = dataTypeRow(dataType());
    QString name = row ? QString(row->fLetters) : QStringLiteral("X%1").arg(dataType());
    name += cChannels[channel()];
    if (detector() > 0)
        name += QStringLiteral("%1Ch").arg(detector() + 1);
    static const char *cDerivatives[] = {"", ".d1", ".d2", ".dn"};
    return name + cDerivatives[derivative()];
}

QString TOpusTypeWord::name() const
{
    if (isData() || (isDataStatus() && dataType() != 0))
        return dataName();
    if (fWord == 0)
        return QStringLiteral("Deleted");
    QString name = kind() == cNotParameters ? reportName(extension()) : kindName(kind());
    if (dataType() == cDirectory && extension() == cPlain)
        name = QStringLiteral("Directory");
    return channel() == cReference ? name + " Rf" : name;
}

QString TOpusTypeWord::description() const
{
    static const char *cParts[] = {nullptr, "real part", "imaginary part", "amplitude"};
    static const char *cChannels[] = {nullptr, "sample", "reference", "ratioed"};
    static const char *cDerivatives[] = {nullptr, "first derivative", "second derivative", "n-th derivative"};
    QStringList texts;
    if (kind() != cNotParameters)
        texts.append(kindName(kind()).toLower() + " parameters");
    if (dataType() != 0) {
        const TDataTypeRow *row = dataTypeRow(dataType());
        texts.append(row ? QString(row->fMeaning) : QStringLiteral("unknown data type %1").arg(dataType()));
    }
    for (const char *text : {cChannels[channel()], cParts[part()], cDerivatives[derivative()]}) {
        if (text)
            texts.append(text);
    }
    if (detector() > 0)
        texts.append(QStringLiteral("detector channel %1").arg(detector() + 1));
    if (extension() != cPlain)
        texts.append(QStringLiteral("extension %1, %2").arg(extension()).arg(reportName(extension()).toLower()));
    if (isOriginal())
        texts.append(QStringLiteral("as measured"));
    return texts.join(", ");
}
