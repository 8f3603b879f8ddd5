#include "TCliInspect.h"

#include "TCanvasYrexSpectrum.h"
#include "TCliArguments.h"
#include "TCliEnvironment.h"
#include "TCliFileList.h"
#include "TCliInput.h"
#include "TCliSpool.h"
#include "TCliSyntax.h"
#include "canvas/TDocument.h"
#include "plugin/IConsole.h"
#include "plugin/IConverter.h"
#include "services/IBatchHost.h"
#include "services/TImportDriver.h"

#include <QFileInfo>

namespace {

QString outcome(const TCliInput &input)
{
    if (!input.isOk())
        return TCliEnvironment::failureLine(input.fFile, input.fReason, input.fCode).section(": ", 2);
    int spectra = 0;
    for (ICanvasItem *item : input.fItems)
        spectra += yrexItem(item)->spectra().size();
    return QString("opens as %1, items: %2, spectra: %3").arg(input.fFormatName).arg(input.fItems.size()).arg(spectra);
}

} // namespace

TCliSyntax TCliInspect::syntax() const
{
    TCliSyntax syntax;
    syntax.fName = "inspect";
    syntax.fSummary = "Tells why files open or do not: what each format says of them, and what is inside.";
    syntax.fOptions =
        QVector<TCliOption>{{"--format", "NAME", "look at the files as this format (see zarnu formats)"}} +
        TCliFileList::options();
    syntax.fNotes =
        QStringList{"A row of the inside has its place in front, \"@offset +bytes\" or \"line n\", then its "
                    "name and its value, and what it means, why it is skipped or what is broken there."};
    return syntax;
}

bool TCliInspect::inspect(const QString &file, const QString &format, const TCliEnvironment &environment)
{
    const QFileInfo info(file);
    if (!TCliSpool::isStream(file) && (!info.isFile() || !info.isReadable())) {
        environment.fConsole.err(TCliEnvironment::failureLine(
            file, info.exists() ? TImportDriver::reason(cConverterFileNotOpened) : QString("there is no such file"),
            cConverterFileNotOpened));
        return false;
    }
    TCliInput input = TCliInputs::open(file, format, environment);
    QString text = QString("%1: %2\n").arg(input.fFile, outcome(input));
    for (const QString &note : qAsConst(input.fNotes))
        text += QString("  %1\n").arg(note);
    if (!TDocument::isDocument(input.path()) || !format.isEmpty())
        text += environment.fBatch.importDriver().inspect(input.path(), format).text();
    environment.fConsole.out((text + '\n').toUtf8());
    return true;
}

int TCliInspect::run(const TCliArguments &arguments, const TCliEnvironment &environment)
{
    const QString format = arguments.value("--format");
    if (!format.isEmpty() && !environment.fBatch.importDriver().converterByName(format))
        return environment.refuse(QString("there is no format %1; see zarnu formats").arg(format));
    bool allDone = true;
    QStringList files;
    QString error;
    if (!TCliFileList::read(arguments, files, error))
        return environment.refuse("inspect: " + error);
    for (const QString &file : qAsConst(files))
        allDone = inspect(file, format, environment) && allDone;
    return allDone ? cCliAllDone : cCliInputFailed;
}
