#include "TYrexSPConverter.h"

#include "TSpFile.h"
#include "TSpInspection.h"
#include "TYrexSidecar.h"
#include "TYrexSpectrum.h"
#include "utils/TFileFormat.h"
#include "utils/TFileWriter.h"

#include <memory>

namespace {

const QString cSpFilter = QStringLiteral("Zarnu PerkinElmer block structured file (*.sp)");
const QString cMarker = QStringLiteral("SP_METADATA");

/// A value that fits its line.
QByteArray lineOf(const QByteArray &key, QByteArray value)
{
    value.replace('\0', ' ').replace('\n', ' ').replace('\r', ' ');
    return key + ": " + value;
}

void addSidecar(TParamsBundle &bundle, const QString &fileName, const TSpFile &file,
                const QMap<QByteArray, QByteArray> &texts)
{
    TYrexSidecar sidecar(fileName);
    sidecar.writeLine(lineOf("signature", file.signature()));
    sidecar.writeLine(lineOf("description", file.description()));
    for (auto it = texts.constBegin(); it != texts.constEnd(); ++it)
        sidecar.writeLine(lineOf(it.key(), it.value()));
    sidecar.addTo(bundle, cMarker);
}

} // namespace

TYrexSPConverter::TYrexSPConverter(QObject *plugin)
    : TYrexSpectrumConverter(cSpFilter, Common::Types::cFormatSP, plugin)
{
}

QString TYrexSPConverter::formatName() const
{
    return QStringLiteral("sp");
}

QString TYrexSPConverter::refusal(const QString &fileName)
{
    return TSpFile(fileName).refusal();
}

TFileNode TYrexSPConverter::inspect(const QString &fileName)
{
    return inspectSp(TSpFile(fileName));
}

int TYrexSPConverter::exportItems(const TCanvasItemList &, const QString &fileName)
{
    QString error;
    const bool isWritten = TFileWriter::write(fileName, QByteArray(), &error);
    setProblem(error);
    return isWritten ? cConverterOk : cConverterFileNotOpened;
}

int TYrexSPConverter::failed(const QString &problem)
{
    setProblem(problem);
    return cConverterContentUnusable;
}

int TYrexSPConverter::readFile(const QString &fileName)
{
    setReadFlags(0);
    const TSpFile file(fileName);
    if (!file.bytes().isOpen()) {
        setProblem(file.bytes().error());
        return cConverterFileNotOpened;
    }
    const QString noBlock = file.firstBlockProblem();
    if (!noBlock.isEmpty())
        return failed(noBlock);
    const TSpWalk walk = file.walk();
    TSpContents contents = file.contents(walk.fFlatStart);
    const QVector<TSpMember> members = file.members(walk);
    for (int i = 0; i < members.size(); ++i) {
        if (const char *key = TSpFile::memberKey(i))
            contents.fTexts.insert(key, members.at(i).fText);
    }
    const QString problem = file.dataProblem(contents);
    return problem.isEmpty() ? appendData(fileName, file, contents) : failed(problem);
}

int TYrexSPConverter::appendData(const QString &fileName, const TSpFile &file, const TSpContents &contents)
{
    std::unique_ptr<TYrexSpectrum> spectrum(new TYrexSpectrum);
    spectrum->setFileFormat(format());
    addSidecar(spectrum->paramsBundle(), fileName, file, contents.fTexts);
    const int xUnit = TSpFile::xUnit(contents.fTexts.value(TSpFile::textKey(TSpFile::cXUnits)));
    const int yUnit = TSpFile::yUnit(contents.fTexts.value(TSpFile::textKey(TSpFile::cYUnits)));
    spectrum->setPointCount(contents.fPoints);
    spectrum->setOrigUnits(xUnit, yUnit);
    spectrum->setUnits(xUnit, yUnit);
    spectrum->setAxis(contents.fFirstX, contents.fLastX, 1.0, 0.0, 1.0);
    if (!readsHeaderOnly()) {
        QVector<double> y(contents.fPoints);
        file.bytes().doubles(contents.fDataAt, contents.fPoints, y.data());
        spectrum->setValues(y);
        spectrum->copyDataToOrgData();
        spectrum->copyDataToAbsOrgData();
    }
    appendSpectrum(spectrum.release());
    return cConverterOk;
}
