#include "TCliInspect.h"

#include "TCanvasYrexSpectrum.h"
#include "TCliArguments.h"
#include "TCliEnvironment.h"
#include "TCliFileList.h"
#include "TCliInput.h"
#include "TCliSpool.h"
#include "TCliSyntax.h"
#include "canvas/TCanvasItem.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "plugin/IConsole.h"
#include "plugin/IConverter.h"
#include "services/IBatchHost.h"
#include "services/IPluginHost.h"
#include "services/TImportDriver.h"
#include "utils/StringUtils.h"

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

constexpr double cUnitsPerMm = 10.0;

QString millimeters(const QSizeF &size)
{
    return QString("%1 x %2 mm").arg(size.width() / cUnitsPerMm).arg(size.height() / cUnitsPerMm);
}

/// Pages and items of a document, with their sizes.
TFileNode insideOf(const TDocument &document)
{
    TFileNode root;
    int number = 0;
    for (const TPage *page : document.pages()) {
        TFileNode &row = root.add(QString("page %1").arg(++number), page->title(), millimeters(page->size()));
        for (TCanvasItem *item : page->items()) {
            const TCanvasYrexSpectrum *spectra = yrexItem(item);
            qint64 points = 0;
            for (const TYrexSpectrum *spectrum : spectra ? spectra->spectra() : TYrexSpectrumList())
                points += spectrum->pointCount();
            QString note = millimeters(item->rect().size());
            if (spectra)
                note = QString("spectra: %1, points: %2, %3").arg(spectra->spectra().size()).arg(points).arg(note);
            row.add(item->type(), item->historyName(), note);
        }
    }
    return root;
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
    if (input.fIsDocument)
        text += QString("document, %1 bytes\n").arg(QFileInfo(input.path()).size()) +
                insideOf(*environment.fHost.document()).text();
    else
        text += environment.fBatch.importDriver().inspect(input.path(), format).text();
    environment.fConsole.out((Utils::String::printable(text) + '\n').toUtf8());
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
