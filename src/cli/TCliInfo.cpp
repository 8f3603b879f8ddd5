#include "TCliInfo.h"

#include "TCanvasYrexSpectrum.h"
#include "TCliArguments.h"
#include "TCliEnvironment.h"
#include "TCliInput.h"
#include "TCliResultJson.h"
#include "TJsonWriter.h"
#include "TTextTable.h"
#include "TYrexParamsParsers.h"
#include "TYrexUnits.h"
#include "consts/Consts.h"
#include "params/TParamsParser.h"
#include "params/TParamsParsers.h"
#include "plugin/IConverter.h"
#include "services/IBatchHost.h"
#include "services/TImportDriver.h"
#include "utils/CommonUtils.h"
#include "utils/StringUtils.h"

namespace {

constexpr int cIndent = 2;

QString numberText(double number)
{
    return QString::fromLatin1(TJsonWriter::number(number)).remove('"');
}

/// Units as "Absorbance", and with the original ones when they differ.
QString unitText(int shown, int original)
{
    const QString name = yrexUnitDisplayName(shown);
    return shown == original ? name : QString("%1 (file: %2)").arg(name, yrexUnitDisplayName(original));
}

QString rangeText(const TYrexSpectrum &spectrum)
{
    const auto shown = [&spectrum](double x) {
        return numberText(yrexConvertX(x, spectrum.origXUnits(), spectrum.xUnits()));
    };
    return QString("%1 .. %2").arg(shown(spectrum.firstX()), shown(spectrum.lastX()));
}

void addIfSaid(TTextTable &table, const QString &name, const QString &text)
{
    if (!text.isEmpty())
        table.addRow({name, text});
}

QString spectrumText(const TYrexSpectrum &spectrum, bool withParams)
{
    TTextTable table(cIndent);
    addIfSaid(table, "Title", spectrum.title());
    table.addRow({"Points", QString::number(spectrum.pointCount())});
    table.addRow({"X range", rangeText(spectrum)});
    table.addRow({"X unit", unitText(spectrum.xUnits(), spectrum.origXUnits())});
    table.addRow({"Y unit", unitText(spectrum.yUnits(), spectrum.origYUnits())});
    addIfSaid(table, "Date", spectrum.dateText());
    addIfSaid(table, "Comment", spectrum.comment());
    addIfSaid(table, "Class", spectrum.spectrumClass());
    if (!spectrum.peaks().isEmpty())
        table.addRow({"Peaks", QString::number(spectrum.peaks().size())});
    if (spectrum.integrals().count() > 0)
        table.addRow({"Integrals", QString::number(spectrum.integrals().count())});
    QString text = table.text();
    if (withParams) {
        TTextTable params(2 * cIndent);
        for (const TSpectrumParam &param : spectrum.params())
            params.addRow({QString::number(param.id()), param.translated_paramName(), param.value()});
        text += QString(cIndent, ' ') + "Parameters\n" + params.text();
    }
    return text;
}

/// What there is to say of the spectra of an item, once for neighbours of which the same is to be said.
QString spectraText(const TYrexSpectrumList &spectra, bool withParams)
{
    QString text;
    int first = 0;
    QString same;
    const auto flush = [&](int end) {
        if (spectra.size() > 1 && end > first)
            text += end - first == 1 ? QString("  Spectrum %1\n").arg(end)
                                     : QString("  Spectra %1 to %2, each\n").arg(first + 1).arg(end);
        text += same;
    };
    for (int i = 0; i < spectra.size(); ++i) {
        const QString next = spectrumText(*spectra.at(i), withParams);
        if (next == same)
            continue;
        flush(i);
        first = i;
        same = next;
    }
    flush(spectra.size());
    return text;
}

/// The parameters that the template of the file's format knows, out of its header.
QString headerText(const TCliInput &input, IConverter &converter)
{
    const QString file = input.path();
    const QString format = converter.metaData(file, {}).value(Consts::Converter::cFileFormat).toString();
    TTextTable table(cIndent);
    table.addRow({"Format", format});
    for (const int number : yrexParamsParsers().formats()) {
        if (Utils::Common::fileFormatToStr(number) != format)
            continue;
        const TSpectrumParamsTemplate entries = yrexParamsParsers().value(number)->templates();
        QStringList ids;
        for (const TSpectrumParam &entry : entries)
            ids.append(QString::number(entry.id()));
        const QVariantMap values = converter.metaData(file, ids);
        for (const TSpectrumParam &entry : entries) {
            const QString id = QString::number(entry.id());
            table.addRow({id, entry.translated_paramName(), values.value(id).toString()});
        }
    }
    return Utils::String::printable(input.fFile) + '\n' + table.text() + '\n';
}

} // namespace

TCliSyntax TCliInfo::syntax() const
{
    TCliSyntax syntax;
    syntax.fName = "info";
    syntax.fSummary = "Tells what is in files: format, items, spectra, points, x range, units, title, date.";
    syntax.fOptions = {{"--params", "", "add every parameter"},
                       {"--json", "", "print JSON, one object for each file in an array"},
                       {"--data", "", "add the y values to the JSON"},
                       {"--no-data", "",
                        "with --params: tell the parameters of a file's first spectrum from its header "
                        "alone"}};
    syntax.fOptions += fileOptions();
    return syntax;
}

bool TCliInfo::prepare(const TCliArguments &arguments, const TCliEnvironment &, QString &error)
{
    fIsJson = arguments.has("--json");
    if (arguments.has("--params"))
        fParts |= TCliResultJson::cParams;
    if (arguments.has("--data"))
        fParts |= TCliResultJson::cData;
    fHeaderOnly = arguments.has("--no-data");
    if (arguments.has("--data") && !fIsJson)
        error = "--data goes with --json";
    else if (fHeaderOnly && (fIsJson || !arguments.has("--params")))
        error = "--no-data goes with --params, and not with --json";
    return error.isEmpty();
}

TCliInput TCliInfo::open(const QString &file, const QString &format, const TCliEnvironment &environment)
{
    fHeaderText.clear();
    TCliInput input = TCliInputs::take(file, environment);
    const TImportDriver &driver = environment.fBatch.importDriver();
    IConverter *converter = nullptr;
    if (fHeaderOnly && input.isOk())
        converter = format.isEmpty() ? driver.converterFor(input.path()) : driver.converterByName(format);
    if (converter)
        fHeaderText = headerText(input, *converter).toUtf8();
    else // documents as well, which have no header
        TCliInputs::load(input, format, environment);
    return input;
}

void TCliInfo::work(TCliInput &input, int, const TCliEnvironment &, QByteArray &out)
{
    if (fIsJson)
        return;
    if (!fHeaderText.isEmpty()) {
        out += fHeaderText;
        return;
    }
    QString text = Utils::String::printable(input.fFile) + '\n';
    TTextTable head(cIndent);
    head.addRow({"Format", input.fFormatName});
    head.addRow({"Items", QString::number(input.fItems.size())});
    text += head.text();
    for (int i = 0; i < input.fItems.size(); ++i) {
        const TYrexSpectrumList &spectra = yrexItem(input.fItems.at(i))->spectra();
        text += QString("\n  Item %1, spectra: %2\n").arg(i + 1).arg(spectra.size());
        text += spectraText(spectra, fParts & TCliResultJson::cParams);
    }
    out += (text + '\n').toUtf8();
}
