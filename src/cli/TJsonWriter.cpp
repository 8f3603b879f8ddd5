#include "TJsonWriter.h"

#include <QMetaType>
#include <QRectF>
#include <charconv>
#include <cmath>

QByteArray TJsonWriter::number(double number)
{
    if (std::isnan(number))
        return "\"nan\"";
    if (std::isinf(number))
        return number > 0.0 ? "\"inf\"" : "\"-inf\"";
    if (number == 0.0 && std::signbit(number))
        return "-0.0";                            // readers take -0 for a whole number and lose its sign
    constexpr double cExact = 9007199254740992.0; // beyond it not every whole number is a double
    if (number == std::floor(number) && std::abs(number) < cExact)
        return QByteArray::number(qint64(number)); // 100000 and not the shorter 1e+05
    char buffer[32];                               // the longest is 24 characters
    const std::to_chars_result result = std::to_chars(buffer, buffer + sizeof(buffer), number);
    return QByteArray(buffer, int(result.ptr - buffer));
}

QByteArray TJsonWriter::quoted(const QString &text)
{
    static const char cHex[] = "0123456789abcdef";
    const QByteArray bytes = text.toUtf8();
    QByteArray result = "\"";
    result.reserve(bytes.size() + 2);
    for (const char c : bytes) {
        const auto code = uchar(c);
        if (c == '"' || c == '\\')
            result.append('\\').append(c);
        else if (c == '\n')
            result.append("\\n");
        else if (c == '\t')
            result.append("\\t");
        else if (code < 0x20 || code == 0x7f)
            result.append("\\u00").append(cHex[code >> 4]).append(cHex[code & 0xf]);
        else
            result.append(c);
    }
    return result.append('"');
}

void TJsonWriter::newLine()
{
    fText.append('\n').append(QByteArray(2 * fDepth, ' '));
}

void TJsonWriter::separate()
{
    if (fAfterKey) {
        fAfterKey = false;
        return;
    }
    if (fLevels.isEmpty())
        return;
    TLevel &level = fLevels.last();
    if (!level.fEmpty)
        fText.append(',');
    if (level.fStyle == cLines)
        newLine();
    else
        fText.append(' ');
    level.fEmpty = false;
}

void TJsonWriter::begin(char bracket, TStyle style)
{
    separate();
    fText.append(bracket);
    // what stands in one line holds nothing that breaks it
    const bool isFlat = style == cFlat || (!fLevels.isEmpty() && fLevels.last().fStyle == cFlat);
    fLevels.append({isFlat ? cFlat : cLines, true});
    ++fDepth;
}

void TJsonWriter::end(char bracket)
{
    const TLevel level = fLevels.takeLast();
    --fDepth;
    if (!level.fEmpty) {
        if (level.fStyle == cLines)
            newLine();
        else
            fText.append(' ');
    }
    fText.append(bracket);
}

void TJsonWriter::key(const QString &name)
{
    separate();
    fText.append(quoted(name)).append(": ");
    fAfterKey = true;
}

void TJsonWriter::value(double content)
{
    separate();
    fText.append(number(content));
}

void TJsonWriter::value(int content)
{
    separate();
    fText.append(QByteArray::number(content));
}

void TJsonWriter::value(bool truth)
{
    separate();
    fText.append(truth ? "true" : "false");
}

void TJsonWriter::value(const QString &content)
{
    separate();
    fText.append(quoted(content));
}

void TJsonWriter::value(const QVariant &variant)
{
    switch (variant.userType()) {
    case QMetaType::Bool:
        return value(variant.toBool());
    case QMetaType::Double:
    case QMetaType::Float:
        return value(variant.toDouble());
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return json(variant.toString().toLatin1());
    case QMetaType::QVariantMap: {
        const QVariantMap map = variant.toMap();
        beginObject();
        for (auto it = map.begin(); it != map.end(); ++it)
            pair(it.key(), it.value());
        return endObject();
    }
    case QMetaType::QVariantList:
    case QMetaType::QStringList:
        beginArray(cFlat);
        for (const QVariant &element : variant.toList())
            value(element);
        return endArray();
    case QMetaType::QRect:
    case QMetaType::QRectF: {
        const QRectF rect = variant.toRectF();
        beginObject(cFlat);
        pair("x", rect.x());
        pair("y", rect.y());
        pair("width", rect.width());
        pair("height", rect.height());
        return endObject();
    }
    default:
        return value(variant.toString());
    }
}

void TJsonWriter::numbers(const double *values, int count)
{
    separate();
    fText.append('[');
    for (int i = 0; i < count; ++i) {
        if (i > 0)
            fText.append(',');
        fText.append(number(values[i]));
    }
    fText.append(']');
}

void TJsonWriter::json(const QByteArray &content)
{
    separate();
    fText.append(content.trimmed().replace("\n", "\n" + QByteArray(2 * fDepth, ' ')));
}
