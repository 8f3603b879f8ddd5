#include "TASCIIYrexParamsParser.h"

#include <QIODevice>
#include <algorithm>

namespace {

const QString cHeaderSource = QStringLiteral("header");
const QString cArbitraryUnits = QStringLiteral("\"Arbitrary\"");

bool isDelimiter(QChar c)
{
    return c.isSpace() || QStringLiteral("=,;:").contains(c);
}

} // namespace

TASCIIYrexParamsParser::TASCIIYrexParamsParser()
{
    setTemplates(TASCIIYrexParamsParser::defaultTemplates());
}

TSpectrumParamsTemplate TASCIIYrexParamsParser::defaultTemplates() const
{
    TSpectrumParamsTemplate entries = TParamsParser::defaultTemplates();
    for (const int id :
         {TSpectrumParam::cXUnits, TSpectrumParam::cYUnits, TSpectrumParam::cOrigXUnits, TSpectrumParam::cOrigYUnits})
        entries.set(TSpectrumParam(id, cArbitraryUnits, QString(), -1));
    entries.set(TSpectrumParam(TSpectrumParam::cOriginalSize, QString(), QString(), 1));
    entries.set(TSpectrumParam(TSpectrumParam::cPointCount, QString(), QString(), 0));
    return entries;
}

bool TASCIIYrexParamsParser::isParseable(const QString &source) const
{
    return source == cHeaderSource;
}

void TASCIIYrexParamsParser::loadSource(const QString &source, const QString &path)
{
    if (source != cHeaderSource)
        return;
    const std::unique_ptr<QIODevice> device = sourceDevice(source, path);
    const QByteArray bytes = device ? device->readAll() : QByteArray();
    const QChar lineEnd('\n');
    fText = lineEnd + QString::fromUtf8(bytes.constData(), bytes.size()) + lineEnd;
}

void TASCIIYrexParamsParser::reset()
{
    fText.clear();
}

QString TASCIIYrexParamsParser::value(const QString &source, const QString &key, const QString &path)
{
    const QString text = TParamsParser::value(source, key, path);
    if (!text.isNull() || source != cHeaderSource)
        return text;
    const QVariant found = findDelimitedValue(key, fText);
    return found.isValid() ? found.toString() : QString();
}

QVariant TASCIIYrexParamsParser::findDelimitedValue(const QString &key, const QString &text)
{
    const int line = text.indexOf(QChar('\n') + key, 0, Qt::CaseInsensitive);
    if (line < 0)
        return QVariant();
    const auto delimiter = std::find_if(text.begin() + line + 1 + key.size(), text.end(), isDelimiter);
    if (delimiter == text.end())
        return QVariant();
    const int begin = int(delimiter - text.begin());
    const int end = text.indexOf(QChar('\n'), begin);
    if (end < 0)
        return QVariant();
    const QString value = text.mid(begin + 1, std::max(0, end - begin - 1)).trimmed();
    const QChar quote('"');
    if (value.size() >= 2 && value.startsWith(quote) && value.endsWith(quote))
        return value.mid(1, value.size() - 2);
    return value;
}
