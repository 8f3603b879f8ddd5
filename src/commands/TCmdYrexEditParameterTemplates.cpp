#include "TCmdYrexEditParameterTemplates.h"

#include "TCanvasYrexSpectrum.h"
#include "TYrexParamsParsers.h"
#include "TYrexStepValues.h"
#include "TYrexTemplatesAsList.h"
#include "YrexStepWords.h"
#include "commands/ScriptWords.h"
#include "history/THistoryCommand.h"
#include "params/TParamsParser.h"
#include "params/TParamsParsers.h"
#include "stream/TDataStream.h"
#include "utils/CommonUtils.h"

namespace {

QByteArray bytesOf(const TSpectrumParams &params)
{
    QByteArray bytes;
    TDataStream stream(&bytes, QIODevice::WriteOnly);
    params.store(stream);
    return bytes;
}

QByteArray bytesOf(const TSpectrumParamsTemplate &templates)
{
    TSpectrumParams params;
    for (const TSpectrumParam &entry : templates)
        params.append(entry);
    return bytesOf(params);
}

int formatOf(const TCanvasYrexSpectrum *item)
{
    const TYrexSpectrum *spectrum = item ? item->currentSpectrum() : nullptr;
    return spectrum ? spectrum->fileFormat() : int(TYrexSpectrum::cNoFormat);
}

} // namespace

TCmdYrexEditParameterTemplates::TCmdYrexEditParameterTemplates(const TCanvasItemList &items,
                                                               const TSpectrumParamsTemplate &templates)
    : TCmdYrexEditParameterTemplates(items, templates, TYrexSpectrum::cNoFormat)
{
    takeFormat(formatOf(mainItem()));
}

TCmdYrexEditParameterTemplates::TCmdYrexEditParameterTemplates(const TCanvasItemList &items,
                                                               const TSpectrumParamsTemplate &templates, int format)
    : TYrexParamsCommand(tr("Edit Parameter Templates"), items)
    , fTemplates(templates)
    , fFormat(format)
{
    takeFormat(format);
}

void TCmdYrexEditParameterTemplates::takeFormat(int format)
{
    fFormat = format;
    const TParamsParser *parser = yrexParamsParsers().value(fFormat);
    if (parser)
        fOldTemplates = parser->templates();
    setVoidFlag(!parser);
}

void TCmdYrexEditParameterTemplates::doCmd()
{
    TParamsParser *parser = yrexParamsParsers().value(fFormat);
    if (!parser)
        return;
    parser->setTemplates(fTemplates);
    TYrexParamsCommand::doCmd();
    if (bytesOf(fTemplates) != bytesOf(fOldTemplates))
        setVoidFlag(false); // spectra that have nothing of it do not make it void
}

void TCmdYrexEditParameterTemplates::undoCmd()
{
    if (TParamsParser *parser = yrexParamsParsers().value(fFormat))
        parser->setTemplates(fOldTemplates);
    TYrexParamsCommand::undoCmd();
}

void TCmdYrexEditParameterTemplates::applyToSpectrum(TCanvasYrexSpectrum *, int, TYrexSpectrum *spectrum, int)
{
    if (spectrum->fileFormat() != fFormat)
        return;
    const QByteArray before = bytesOf(spectrum->params());
    spectrum->reparseParams();
    if (bytesOf(spectrum->params()) != before)
        noteChange();
}

THistoryCommand *TCmdYrexEditParameterTemplates::makeItemHistory(TCanvasYrexSpectrum *item)
{
    THistoryCommand *entry = TYrexParamsCommand::makeItemHistory(item);
    entry->addParam(tr("File Format"), Utils::Common::fileFormatToStr(fFormat), QString());
    entry->addParam(tr("Parameters"), fTemplates.count(), QString());
    return entry;
}

TScriptStep TCmdYrexEditParameterTemplates::scriptStep() const
{
    TScriptStep step("setParameterTemplates");
    step.on(items())
        .with("format", YrexStepWords::formats().word(fFormat))
        .with("templates", YrexTemplatesAsList::told(fTemplates));
    return YrexStepValues::withSpectra(step, targets(), items());
}
