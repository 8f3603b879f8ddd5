#include "TJCAMPYrexParamsParser.h"

#include "jcamp/JCAMPConsts.h"
#include "jcamp/TJCAMPFileMarking.h"
#include "jcampDate.h"
#include "params/TTemplateFunctions.h"

#include <QIODevice>

namespace {

const QString cHeaderSource = QStringLiteral("header");
constexpr int cAllDimensions = -1;
constexpr int cSecondDimension = 1;

} // namespace

TJCAMPYrexParamsParser::TJCAMPYrexParamsParser()
{
    TTemplateFunctions::add(QStringLiteral("jcampDate"), jcampDate);
    setTemplates(TJCAMPYrexParamsParser::defaultTemplates());
}

TJCAMPYrexParamsParser::~TJCAMPYrexParamsParser() = default;

TSpectrumParamsTemplate TJCAMPYrexParamsParser::defaultTemplates() const
{
    using namespace Consts::JCAMP::Params;
    TSpectrumParamsTemplate entries = TParamsParser::defaultTemplates();
    const auto set = [&entries](int id, const char *expression) {
        entries.set(TSpectrumParam(id, QString::fromLatin1(expression), cHeaderSource, cAllDimensions));
    };
    set(TSpectrumParam::cTitle, TITLE);
    set(TSpectrumParam::cDataType, DATATYPE);
    set(TSpectrumParam::cOwner, OWNER);
    set(TSpectrumParam::cOrigin, ORIGIN);
    set(TSpectrumParam::cXUnits, XUNITS);
    set(TSpectrumParam::cOrigXUnits, XUNITS);
    set(TSpectrumParam::cYUnits, YUNITS);
    set(TSpectrumParam::cOrigYUnits, YUNITS);
    set(TSpectrumParam::cPointCount, NPOINTS);
    entries.set(TSpectrumParam(TSpectrumParam::cOriginalSize, QString(), QString(), cSecondDimension));
    set(TSpectrumParam::cInstrument, SPECTROMETERDATASYSTEM);
    set(TSpectrumParam::cDate, "=jcampDate(header(DATE), header($DATE), header($time_complete), header($CREATION), "
                               "header(LONGDATE), header(TIME))");
    set(TSpectrumParam::cOperator,
        "=Str.firstNotEmptyString(header($username), header($AUTHOR), header(AUTHOR), header(username))");
    return entries;
}

bool TJCAMPYrexParamsParser::isParseable(const QString &source) const
{
    return TBaseJCAMPParamsParser::isParseable(source);
}

QString TJCAMPYrexParamsParser::parseParameterName(const QString &source, const QString &key) const
{
    return TBaseJCAMPParamsParser::parseParameterName(source, key);
}

void TJCAMPYrexParamsParser::loadSource(const QString &source, const QString &path)
{
    const std::unique_ptr<QIODevice> device = sourceDevice(source, path);
    fMarking = std::make_unique<TJCAMPFileMarking>(device ? device->readAll() : QByteArray(), path);
    fBlock = fMarking->blocks().isEmpty() ? nullptr : fMarking->blocks().last();
}

void TJCAMPYrexParamsParser::reset()
{
    fBlock = nullptr;
    fMarking.reset();
}

QString TJCAMPYrexParamsParser::value(const QString &source, const QString &key, const QString &path)
{
    const QString text = TBaseJCAMPParamsParser::value(source, key, path);
    return text.isNull() ? value(fBlock, key) : text;
}
