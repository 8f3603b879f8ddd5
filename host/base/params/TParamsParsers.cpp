#include "params/TParamsParsers.h"

#include "params/TParamsBundle.h"
#include "params/TParamsParser.h"

namespace {

void setText(TSpectrumParam &param, int index, const QString &text)
{
    if (param.value(index).isNull())
        param.setValue(index, text);
}

/// Entries of one id with different dimensions are one parameter with a value per dimension.
void addEntry(TSpectrumParams &params, const TSpectrumParam &entry, const QString &text, int dimCount)
{
    TSpectrumParam *param = params.getParam(entry.id());
    if (!param) {
        params.append(entry);
        param = params.getParam(entry.id());
    }
    if (entry.dim() >= 0) {
        setText(*param, TSpectrumParams::dim2Index(entry.dim() + 1, dimCount), text);
        return;
    }
    for (int index = 0; index < dimCount; ++index)
        setText(*param, index, text);
}

} // namespace

TParamsParsers::TParamsParsers() = default;

TParamsParsers::~TParamsParsers() = default;

TParamsParser *TParamsParsers::value(int format) const
{
    const auto found = fParsers.find(format);
    return found == fParsers.end() ? nullptr : found->second.get();
}

void TParamsParsers::insert(int format, TParamsParser *parser)
{
    fParsers[format].reset(parser);
}

QList<int> TParamsParsers::formats() const
{
    QList<int> found;
    for (const auto &entry : fParsers)
        found.append(entry.first);
    return found;
}

TSpectrumParams TParamsParsers::parse(const TParamsParsers &parsers, const TParamsBundle &bundle, int dimCount)
{
    TSpectrumParams params;
    TParamsParser *parser = parsers.value(bundle.fileFormat());
    if (!parser)
        return params;
    const int dimensions = qBound(1, dimCount, TSpectrumParam::cMaxDimensions);
    parser->setBundle(&bundle);
    parser->patchTemplates(dimensions);
    params.reserve(parser->templates().count());
    for (const TSpectrumParam &entry : parser->templates())
        addEntry(params, entry, parser->entryValue(entry, bundle.fileName()), dimensions);
    parser->setBundle(nullptr);
    return params;
}
