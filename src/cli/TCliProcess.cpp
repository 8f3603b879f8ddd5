#include "TCliProcess.h"

#include "TCanvasYrexSpectrum.h"
#include "TCliArguments.h"
#include "TCliEnvironment.h"
#include "TCliInput.h"
#include "TCliOutputHelp.h"
#include "TCliPicture.h"
#include "TCliResultJson.h"
#include "TCliSpool.h"
#include "TCliWriter.h"
#include "TCmdYrexProcessing.h"
#include "TYrexChainFile.h"
#include "TYrexProcLabels.h"
#include "TYrexProcSteps.h"
#include "commands/TCommandHistory.h"
#include "plugin/IConverter.h"
#include "services/IPluginHost.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace {

constexpr int cMinSide = 16; // pixels
constexpr int cMaxSide = 20000;
constexpr qint64 cMaxPixels = 100000000;

} // namespace

TCliSyntax TCliProcess::syntax() const
{
    TCliSyntax syntax;
    syntax.fName = "process";
    syntax.fSummary = "Imports files, runs a processing chain as one command on every item, and writes the results.";
    syntax.fOptions = {
        {"--chain", "CHAIN", "the chain: a processing template (.kzp) or JSON; without it nothing is run"},
        {"--stack", "", "gather the spectra of all files into one stack before the chain runs; x units must agree"},
        {"--pick", "FROM:TO[:LEVEL]", "pick peaks between two x of the shown unit, above a level of y; may be repeated",
         TCliOption::cOffered, true},
        {"--integrate", "FROM:TO", "integrate between two x of the shown unit; may be repeated", TCliOption::cOffered,
         true}};
    syntax.fOptions += TCliOutputHelp::dataOptions();
    syntax.fOptions +=
        {{"--plot", "PIC",
          QString("draw a picture, whose ending says the form (%1), or one for each file in a folder")
              .arg(TCliTarget::formNames(TCliTarget::cPicture))},
         {"--plot-to", "FORM", "the form of pictures in a folder (default png)"},
         {"--size", "WxH", "size of the picture in pixels (default 1600x1000); svg and pdf have its shape"},
         {"--save-script", "FILE", "write what is done as a script, to do it again with zarnu script FILE"},
         {"--json", "", "print everything as JSON, one object for each file in an array"}};
    syntax.fOptions += fileOptions();
    syntax.fNotes = TCliOutputHelp::dataNotes();
    return syntax;
}

bool TCliProcess::loadChain(const QString &file, const TCliEnvironment &environment, QString &error)
{
    fChain = std::make_unique<TYrexProcParams>();
    QStringList warnings;
    if (!TYrexChainFile::load(file, *fChain, error, warnings)) {
        error = file + ": " + error;
        return false;
    }
    for (const QString &warning : qAsConst(warnings))
        environment.warn(file + ": " + warning);
    for (int i = 0; i < fChain->actionCount(); ++i) {
        const int id = fChain->actionId(i);
        if (fChain->isApplied(i) && !TYrexProcSteps::isStepBuilt(id))
            environment.warn(QString("%1: %2 is not available in this version and is passed over")
                                 .arg(file, TYrexProcLabels::sourceLabel(id)));
    }
    return true;
}

bool TCliProcess::readSize(const QString &text, QString &error)
{
    static const QRegularExpression cForm("^(\\d{1,6})[xX](\\d{1,6})$");
    const QRegularExpressionMatch match = cForm.match(text);
    fSize = QSize(match.captured(1).toInt(), match.captured(2).toInt());
    const auto fits = [](int side) { return side >= cMinSide && side <= cMaxSide; };
    if (match.hasMatch() && fits(fSize.width()) && fits(fSize.height()) &&
        qint64(fSize.width()) * fSize.height() <= cMaxPixels)
        return true;
    error = QString("--size: %1 is no size such as 1600x1000, of sides from %2 to %3 and at most %4 pixels")
                .arg(text)
                .arg(cMinSide)
                .arg(cMaxSide)
                .arg(cMaxPixels);
    return false;
}

bool TCliProcess::prepare(const TCliArguments &arguments, const TCliEnvironment &environment, QString &error)
{
    if (arguments.has("--size") && !readSize(arguments.value("--size"), error))
        return false;
    fStacks = arguments.has("--stack");
    if (!fMarks.parse(arguments.values("--pick"), arguments.values("--integrate"), error))
        return false;
    const QStringList sources = inputs() + arguments.values("--chain");
    fData.setSources(sources);
    fPictures.setSources(sources);
    const QStringList outputs = fStacks ? QStringList(inputs().mid(0, 1)) : inputs();
    if (!fData.plan(TCliTarget::cData, arguments, outputs, error) ||
        !fPictures.plan(TCliTarget::cPicture, arguments, outputs, error))
        return false;
    if (fData.isStandardOutput() && arguments.has("--json")) {
        error = "-o - and --json both write to standard output";
        return false;
    }
    for (const QString &file : inputs()) {
        if (arguments.has("--save-script") && TCliSpool::isStream(file)) {
            error = "--save-script: a script cannot read standard input or a pipe again";
            return false;
        }
    }
    if (!fScript.plan(arguments.value("--save-script"), arguments.has("--force"), sources, error))
        return false;
    if (arguments.has("--chain") && !loadChain(arguments.value("--chain"), environment, error))
        return false;
    if (!fData.isPlanned() && !fPictures.isPlanned() && !arguments.has("--json") && !fScript.isPlanned())
        environment.warn("nothing is written: give -o, --plot, --save-script or --json");
    return true;
}

int TCliProcess::jsonParts() const
{
    return TCliResultJson::cAll;
}

bool TCliProcess::makeFolders(QString &error)
{
    return fData.makeFolder(error) && fPictures.makeFolder(error);
}

void TCliProcess::draw(TCliInput &input, int index) const
{
    const QStringList paths = fPictures.itemPaths(index, input.fItems.size());
    QString error;
    for (int i = 0; i < paths.size() && error.isEmpty(); ++i)
        error = fPictures.obstacle(paths.at(i), index);
    for (int i = 0; i < paths.size() && error.isEmpty(); ++i) {
        TCanvasYrexSpectrum &item = *yrexItem(input.fItems.at(i));
        TPictureExporter picture = cliPicture(item, fSize, input.provenance());
        picture.origin().fHasFolders = fPictures.hasSourceFolders();
        picture.save(paths.at(i), TPictureExporter::formOf("." + fPictures.form()), &error);
    }
    if (!error.isEmpty())
        input.fail(cConverterFileNotOpened, error);
    else if (paths.isEmpty())
        input.fail(cConverterNothingToExport, "there is nothing to draw");
}

void TCliProcess::mark(TCliInput &input, const TCliEnvironment &environment) const
{
    QStringList notes;
    for (ICanvasItem *item : qAsConst(input.fItems))
        fMarks.apply(*yrexItem(item), environment.fHost.history(), notes);
    for (const QString &note : qAsConst(notes))
        environment.warn(input.fFile + ": " + note);
}

void TCliProcess::work(TCliInput &input, int index, const TCliEnvironment &environment, QByteArray &out)
{
    if (fChain && !input.fItems.isEmpty()) {
        auto *command = new TCmdYrexProcessing(input.fItems, *fChain);
        if (environment.fHost.history().push(command)) {
            for (const QString &remark : command->remarks())
                environment.warn(input.fFile + ": " + remark);
        }
    }
    mark(input, environment);
    if (fData.isPlanned()) {
        TCliWriter writer(environment, fData);
        writer.setChain(chain());
        writer.write(input, index, out);
    }
    if (fPictures.isPlanned() && input.isOk())
        draw(input, index);
    if (fScript.isPlanned() && input.isOk())
        tellScript(input, index, environment);
}

void TCliProcess::tellScript(const TCliInput &input, int index, const TCliEnvironment &environment)
{
    fScript.begin(input);
    fScript.addSteps(environment.fHost.history());
    if (fData.isPlanned())
        fScript.addData(fData, input, index);
    if (fPictures.isPlanned())
        fScript.addPictures(fPictures, input, index, fSize);
}

bool TCliProcess::finish(QString &error)
{
    return !fScript.isPlanned() || fScript.write("Written by zarnu process.", error);
}
