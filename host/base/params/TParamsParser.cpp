#include "params/TParamsParser.h"

#include "params/TParamsBundle.h"
#include "params/TTemplateFormula.h"

#include <QBuffer>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QScopedValueRollback>

namespace {

const QString cDatafileSource = QStringLiteral("datafile");
const QString cLastModifiedKey = QStringLiteral("_LASTMODIFIED_");

constexpr int cMaxCachedSource = 1024 * 1024; // bytes; larger sources are not kept alive for a cached text

bool isLiteral(const QString &text)
{
    const QLatin1Char quote('"');
    return text.size() >= 2 && text.startsWith(quote) && text.endsWith(quote) &&
           text.indexOf(quote, 1) == text.size() - 1;
}

} // namespace

TParamsParser::TParamsParser()
    : fTemplates(TParamsParser::defaultTemplates())
{
}

TParamsParser::~TParamsParser() = default;

QString TParamsParser::value(const QString &source, const QString &key, const QString &path)
{
    if (isLiteral(key))
        return key.mid(1, key.size() - 2);
    if (source == cDatafileSource && key == cLastModifiedKey)
        return datafileTime(path);
    if (isFormula(key) && !fInFormula)
        return formulaValue(key, path);
    return QString();
}

void TParamsParser::reset() {}

void TParamsParser::patchTemplates(int) {}

TSpectrumParamsTemplate TParamsParser::defaultTemplates() const
{
    TSpectrumParamsTemplate common;
    for (const int id : {TSpectrumParam::cDescription, TSpectrumParam::cComment, TSpectrumParam::cExperiment})
        common.set(TSpectrumParam(id, QString(), QString(), -1));
    return common;
}

QString TParamsParser::parseParameterName(const QString &, const QString &key) const
{
    return key;
}

bool TParamsParser::isParseable(const QString &source) const
{
    return !source.isEmpty();
}

void TParamsParser::loadSource(const QString &, const QString &) {}

bool TParamsParser::needsBlob(const QString &) const
{
    return false;
}

void TParamsParser::setBundle(const TParamsBundle *bundle)
{
    fBundle = bundle;
    fInSession = bundle != nullptr;
    fLoaded.clear();
    reset();
}

QString TParamsParser::value(const QString &entry, const TParamsBundle &bundle)
{
    const TParamsBundle *before = fBundle;
    setBundle(&bundle);
    QString source;
    QString key = entry;
    if (!isFormula(entry))
        parseParamStr(entry, source, key);
    const QString text = evaluate(source, key, bundle.fileName());
    setBundle(before);
    return text;
}

QString TParamsParser::entryValue(const TSpectrumParam &entry, const QString &path)
{
    if (!entry.hasExpression())
        return QString();
    return cachedOrEvaluated(entry.source(), entry.expression(), path);
}

QVariantList TParamsParser::valuesFromDir(const QString &name, const QStringList &arguments, const QDir &dir)
{
    const QString path = fBundle ? fBundle->fileName() : dir.absoluteFilePath(name);
    const QScopedValueRollback<bool> session(fInSession, true);
    fLoaded.clear();
    QVariantList values;
    for (const QString &argument : arguments) {
        const QString text = sourceValue(name, argument, path);
        values.append(text.isNull() ? QVariant() : QVariant(text));
    }
    fLoaded.clear();
    reset();
    return values;
}

bool TParamsParser::isFormula(const QString &text)
{
    return text.startsWith(QLatin1Char('='));
}

bool TParamsParser::parseParamStr(const QString &entry, QString &name, QString &argument)
{
    return TTemplateFormula::splitCall(entry, name, argument);
}

std::unique_ptr<QIODevice> TParamsParser::sourceDevice(const QString &source, const QString &path) const
{
    if (fBundle && (*fBundle)[source].hasContent()) {
        std::unique_ptr<QBuffer> buffer(new QBuffer);
        buffer->setData((*fBundle)[source].data());
        buffer->open(QIODevice::ReadOnly);
        return buffer;
    }
    std::unique_ptr<QFile> file(new QFile(path));
    if (path.isEmpty() || !file->open(QIODevice::ReadOnly))
        return nullptr;
    return file;
}

QString TParamsParser::datafileTime(const QString &path) const
{
    if (fBundle)
        return (*fBundle)[cDatafileSource].lastModified();
    const QFileInfo info(path);
    return info.isFile() ? info.lastModified().toUTC().toString(Qt::ISODate) : QString();
}

QString TParamsParser::formulaValue(const QString &formula, const QString &path)
{
    const QScopedValueRollback<bool> inFormula(fInFormula, true);
    return TTemplateFormula(formula).evaluate(
        [this, &path](const QString &source, const QString &key) { return sourceValue(source, key, path); });
}

/// One expression, without asking an override about what is no key.
QString TParamsParser::evaluate(const QString &source, const QString &expression, const QString &path)
{
    if (isFormula(expression))
        return formulaValue(expression, path);
    if (isLiteral(expression))
        return expression.mid(1, expression.size() - 2);
    return sourceValue(source, expression, path);
}

QString TParamsParser::sourceValue(const QString &source, const QString &key, const QString &path)
{
    const bool hasBlob = fBundle && (*fBundle)[source].hasContent();
    if (hasBlob) {
        fTouched.append({source, (*fBundle)[source].data()});
    } else if (fBundle && needsBlob(source)) {
        fTouched.append({source, QByteArray()});
        return QString();
    } else {
        fCacheable = false;
    }
    if (isParseable(source) && !(fInSession && fLoaded.contains(source))) {
        loadSource(source, path);
        fLoaded.insert(source);
    }
    return value(source, key, path);
}

bool TParamsParser::isCurrent(const TCachedText &cached) const
{
    for (const auto &source : cached.fSources) {
        if ((*fBundle)[source.first].data().constData() != source.second.constData() ||
            (*fBundle)[source.first].hasContent() == source.second.isNull())
            return false;
    }
    return true;
}

/// The spectra of one file share the bytes of their header, which is then evaluated for the first of them only.
QString TParamsParser::cachedOrEvaluated(const QString &source, const QString &expression, const QString &path)
{
    const QPair<QString, QString> key(source, expression);
    if (fBundle) {
        const auto found = fCache.constFind(key);
        if (found != fCache.constEnd() && isCurrent(*found))
            return found->fText;
    }
    fTouched.clear();
    fCacheable = fBundle != nullptr;
    const QString text = evaluate(source, expression, path);
    for (const auto &touched : fTouched)
        fCacheable = fCacheable && touched.second.size() <= cMaxCachedSource;
    if (fCacheable)
        fCache.insert(key, TCachedText{fTouched, text});
    fTouched.clear();
    return text;
}
