#include "TYrexSERSBTConverter.h"

#include "IYrexItemFactory.h"
#include "TSersbtFile.h"
#include "TYrexSidecar.h"
#include "TYrexSpectrum.h"
#include "TYrexUnits.h"
#include "utils/TFileFormat.h"

#include <QFile>
#include <QFileInfo>

namespace {

const QString cSersbtFilter = QStringLiteral("Zarnu SERSBT (*.meas)");
const QString cMarker = QStringLiteral("SERSBT_METADATA");
const QString cLfaTitle = QStringLiteral("LFA spectra - spec %1");
const QString cNonLfaTitle = QStringLiteral("Non LFA spectra - spec %1");
constexpr qint64 cHeadBytes = 0x20000; // that much decides on a file

int xUnitOf(const QByteArray &text)
{
    if (text.contains("cm-1"))
        return cUnitRamanShift;
    if (text.contains("nm"))
        return cUnitNanometers;
    return text.contains("um") ? cUnitMicrometers : cUnitArbitrary;
}

QByteArray sidecarText(const QMap<QByteArray, QByteArray> &parameters)
{
    QByteArray text;
    for (auto it = parameters.constBegin(); it != parameters.constEnd(); ++it)
        text += it.key() + ": " + it.value() + "| ";
    return text;
}

void addList(const TSersbtList &list, TFileNode *root)
{
    if (list.fLine == 0)
        return;
    TFileNode &row = root->add(list.fName, QStringLiteral("%1 x %2").arg(list.fGridFirst).arg(list.fGridSecond),
                               QStringLiteral("%1 integers, checked and not used further").arg(list.fFirst.size()));
    row.fLine = list.fLine;
}

void addBlock(const TSersbtBlock &block, const QString &title, TFileNode *root)
{
    if (block.fLine == 0)
        return;
    TFileNode &row = root->add(block.fName,
                               QStringLiteral("%1 points, %2 x %3 spectra")
                                   .arg(block.fPointCount)
                                   .arg(block.fGridFirst)
                                   .arg(block.fGridSecond),
                               QStringLiteral("the spectra \"%1\" and so on").arg(title.arg(1)));
    row.fLine = block.fLine;
    row.add("rows", QString::number(block.fRowCount),
            block.fX.size() < block.fRowCount
                ? QStringLiteral("%1 used: announced, and of different x").arg(block.fX.size())
                : QString());
    if (!block.fX.isEmpty())
        row.add("x axis", QStringLiteral("%1 to %2").arg(block.fX.first()).arg(block.fX.last()),
                QStringLiteral("taken as even between its ends"));
}

} // namespace

TYrexSERSBTConverter::TYrexSERSBTConverter(QObject *plugin)
    : TYrexSpectrumConverter(cSersbtFilter, Common::Types::cFormatSERSBT, plugin)
{
    setFlags(flags() | cNeedsFilter);
}

QString TYrexSERSBTConverter::formatName() const
{
    return QStringLiteral("sersbt");
}

QString TYrexSERSBTConverter::refusal(const QString &fileName)
{
    if (!fileName.endsWith(QLatin1String(".meas")))
        return QStringLiteral("expected a name that ends in \".meas\", found \"%1\"")
            .arg(QFileInfo(fileName).fileName());
    QFile file(fileName);
    if (QFileInfo(fileName).isDir() || !file.open(QIODevice::ReadOnly))
        return QStringLiteral("the file cannot be opened");
    return TSersbtFile::refusal(file.read(cHeadBytes));
}

TFileNode TYrexSERSBTConverter::inspect(const QString &fileName)
{
    TFileNode root;
    QFile file(fileName);
    if (QFileInfo(fileName).isDir() || !file.open(QIODevice::ReadOnly))
        return root;
    const QByteArray text = file.readAll();
    if (!text.startsWith("FileVersion"))
        return root;
    TSersbtFile content;
    const bool isWhole = content.parse(text);
    root.fName = QFileInfo(fileName).fileName();
    root.fValue = QStringLiteral("SERSBT");
    root.fOffset = 0;
    root.fSize = text.size();
    const QString refused = TSersbtFile::refusal(text.left(cHeadBytes));
    if (!refused.isEmpty())
        root.addBroken("version", refused);
    addList(content.sweep(), &root);
    addList(content.gain(), &root);
    addBlock(content.lfa(), cLfaTitle, &root);
    addBlock(content.nonLfa(), cNonLfaTitle, &root);
    addList(content.sourceOn(), &root);
    for (const int line : content.repeatedLines().mid(0, TFileNode::cMaxShown))
        root.addSkipped("block", QStringLiteral("a block of that name stood before")).fLine = line;
    if (isWhole)
        root.add("checks", "passed");
    else
        root.addBroken("checks", content.problem());
    TFileNode &parameters = root.add("parameters", QString::number(content.parameters().size()));
    for (auto it = content.parameters().constBegin(); it != content.parameters().constEnd(); ++it) {
        if (parameters.fRows.size() == TFileNode::cMaxShown) {
            parameters.add(
                "...", QString(),
                QStringLiteral("%1 more parameters").arg(content.parameters().size() - TFileNode::cMaxShown));
            break;
        }
        const bool tellsUnit = it.key() == "RamanShiftUnits";
        parameters.add(QString::fromUtf8(it.key()), QString::fromUtf8(it.value()),
                       tellsUnit ? QStringLiteral("x unit %1").arg(xUnitOf(it.value())) : QString());
    }
    return root;
}

int TYrexSERSBTConverter::readFile(const QString &fileName)
{
    setReadFlags(cGroup);
    QFile file(fileName);
    if (QFileInfo(fileName).isDir() || !file.open(QIODevice::ReadOnly)) {
        setProblem(QStringLiteral("the file cannot be opened"));
        return cConverterFileNotOpened;
    }
    const QByteArray text = file.readAll();
    TSersbtFile content;
    if (text.isEmpty()) {
        setProblem(QStringLiteral("the file is empty"));
        return cConverterContentUnusable;
    }
    if (!content.parse(text)) {
        setProblem(content.problem());
        return cConverterContentUnusable;
    }

    if (content.lfa().fY.isEmpty() && content.nonLfa().fY.isEmpty()) {
        setProblem(
            QStringLiteral("expected a block \"BeginLFASpectralData\" or \"BeginNonLFASpectralData\", found neither"));
        return cConverterContentUnusable;
    }

    TYrexSidecar sidecar(fileName);
    sidecar.writeSection("Misc_params", sidecarText(content.parameters()), TYrexSidecar::cComment);
    TParamsBundle bundle; // one for all, so that they share its bytes
    sidecar.addTo(bundle, cMarker);
    const int xUnit = xUnitOf(content.parameters().value("RamanShiftUnits"));
    const QString date = QString::fromUtf8(content.parameters().value("Date"));
    appendBlock(content.lfa(), cLfaTitle, xUnit, date, bundle);
    appendBlock(content.nonLfa(), cNonLfaTitle, xUnit, date, bundle);
    return cConverterOk;
}

void TYrexSERSBTConverter::appendBlock(const TSersbtBlock &block, const QString &title, int xUnit, const QString &date,
                                       const TParamsBundle &bundle)
{
    for (int j = 1; j <= block.fY.size(); ++j) {
        std::unique_ptr<TYrexSpectrum> spectrum(new TYrexSpectrum);
        spectrum->paramsBundle() = bundle;
        spectrum->setFileFormat(Common::Types::cFormatSERSBT);
        spectrum->setCachedTitle(title.arg(j));
        spectrum->setOrigUnits(xUnit, cUnitArbitrary);
        spectrum->setUnits(xUnit, cUnitArbitrary);
        spectrum->setDateText(date);
        spectrum->setAxis(block.fX.first(), block.fX.last(), 1.0, 0.0, 1.0);
        spectrum->setSeriesValue(j);
        spectrum->setPointCount(block.fX.size());
        spectrum->setValues(block.fY.at(j - 1));
        spectrum->copyDataToOrgData();
        spectrum->copyDataToAbsOrgData();
        appendSpectrum(spectrum.release());
    }
}

int TYrexSERSBTConverter::convert(const QString &fileName, ICanvas *parent)
{
    clearSpectra();
    const int code = readFile(fileName);
    if (code != cConverterOk)
        return code;
    const TYrexSpectrumList all = spectra();
    giveNumbers();
    const TParamsBlob datafile = TParamsBundle::datafileBlob(fileName);
    for (TYrexSpectrum *spectrum : all)
        finishSpectrum(spectrum, fileName, datafile);
    if (!(readFlags() & cGroup) || all.isEmpty() || !IYrexItemFactory::current())
        return cConverterOk;

    TYrexSpectrumList first;
    TYrexSpectrumList second;
    const bool beginsWithLfa = all.first()->fileFormat() == Common::Types::cFormatSERSBT &&
                               all.first()->cachedTitle().startsWith(QLatin1String("LFA s"));
    for (TYrexSpectrum *spectrum : all) {
        const bool isOther = beginsWithLfa && spectrum->cachedTitle().startsWith(QLatin1String("Non LFA s"));
        (isOther ? second : first).append(spectrum);
    }
    adopt(first, parent);
    if (!second.isEmpty())
        adopt(second, parent);
    return cConverterOk;
}
