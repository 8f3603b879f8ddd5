#include "jcamp/JCAMPUtils.h"

#include "jcamp/JCAMPNumber.h"

#include <QTextCodec>
#include <cmath>

namespace {

bool isLeftOut(char c)
{
    return c == ' ' || c == '-' || c == '/' || c == '_' || (c >= '\t' && c <= '\r');
}

char upper(char c)
{
    return c >= 'a' && c <= 'z' ? char(c - 'a' + 'A') : c;
}

/// Where the number of a value begins and ends as a word, up to a blank.
QByteArray firstWord(const QByteArray &value)
{
    const QByteArray text = Utils::JCAMP::cutComment(value);
    int end = 0;
    while (end < text.size() && !(text[end] == ' ' || (text[end] >= '\t' && text[end] <= '\r')))
        ++end;
    return text.left(end);
}

double numberOf(const QByteArray &word, bool hasDecimalComma, bool &found)
{
    TJCAMPNumberScanner scanner;
    scanner.fHasBareExponents = true;
    scanner.fHasDecimalComma = hasDecimalComma;
    const char *begin = word.constData();
    const char *end = begin + word.size();
    TJCAMPNumber number;
    found = scanner.isNumber(begin, end);
    if (found)
        scanner.scan(begin, end, &number);
    found = found && std::isfinite(number.fValue);
    return found ? number.fValue : 0;
}

} // namespace

QByteArray Utils::JCAMP::getUnifiedParamValue(const QByteArray &text)
{
    QByteArray unified;
    unified.reserve(text.size());
    for (const char c : text) {
        if (!isLeftOut(c))
            unified.append(upper(c));
    }
    return unified;
}

QString Utils::JCAMP::getUnifiedParamValue(const QString &text)
{
    return QString::fromUtf8(getUnifiedParamValue(text.toUtf8()));
}

QByteArray Utils::JCAMP::cutComment(const QByteArray &line)
{
    const int comment = line.indexOf("$$");
    return (comment < 0 ? line : line.left(comment)).trimmed();
}

QString Utils::JCAMP::cutComment(const QString &line)
{
    const int comment = line.indexOf(QLatin1String("$$"));
    return (comment < 0 ? line : line.left(comment)).trimmed();
}

QByteArray Utils::JCAMP::unifiedFirstLine(const QByteArray &value)
{
    QByteArray unified;
    for (int begin = 0; unified.isEmpty() && begin < value.size();) {
        const int end = value.indexOf('\n', begin);
        unified = getUnifiedParamValue(cutComment(value.mid(begin, end < 0 ? -1 : end - begin)));
        begin = end < 0 ? value.size() : end + 1;
    }
    return unified;
}

double Utils::JCAMP::toDouble(const QByteArray &line, int column, char separator)
{
    int begin = 0;
    for (int i = 1; i < column; ++i) {
        begin = line.indexOf(separator, begin) + 1;
        if (begin == 0)
            return 0;
    }
    if (column < 1)
        return 0;
    const int end = line.indexOf(separator, begin);
    bool found = false;
    return numberOf(line.mid(begin, end < 0 ? -1 : end - begin).trimmed(), false, found);
}

double Utils::JCAMP::toDouble(const QString &line, int column, const QString &separator)
{
    const QStringList columns = separator.isEmpty() ? QStringList(line) : line.split(separator);
    bool found = false;
    return column < 1 || column > columns.size() ? 0 : numberOf(columns[column - 1].trimmed().toUtf8(), false, found);
}

double Utils::JCAMP::headerNumber(const QByteArray &value, bool &found)
{
    return numberOf(firstWord(value), hasDecimalComma(value), found);
}

bool Utils::JCAMP::hasDecimalComma(const QByteArray &value)
{
    const QByteArray word = firstWord(value);
    const int comma = word.indexOf(',');
    return comma >= 0 && comma == word.lastIndexOf(',') && !word.contains('.') && comma + 1 < word.size() &&
           unsigned(word[comma + 1] - '0') < 10 && (comma == 0 || unsigned(word[comma - 1] - '0') < 10);
}

QString Utils::JCAMP::textOf(const QByteArray &bytes)
{
    static const QTextCodec *const cUtf8 = QTextCodec::codecForName("UTF-8"); // the look-up goes over all names
    QTextCodec::ConverterState state;
    const QString text = cUtf8->toUnicode(bytes.constData(), bytes.size(), &state);
    const bool isUtf8 = state.invalidChars == 0 && state.remainingChars == 0;
    return isUtf8 ? text : QString::fromLatin1(bytes);
}

bool Utils::JCAMP::hasJCAMPLabel(const QByteArray &head)
{
    for (int at = head.indexOf("##"); at >= 0; at = head.indexOf("##", at + 2)) {
        int before = at;
        while (before > 0 && (head[before - 1] == ' ' || head[before - 1] == '\t'))
            --before;
        const bool isLineStart = before == 0 || head[before - 1] == '\n' || head[before - 1] == '\r' ||
                                 (before == 3 && head.startsWith("\xEF\xBB\xBF"));
        const QByteArray label = isLineStart ? getUnifiedParamValue(head.mid(at + 2, 16)) : QByteArray();
        if (label.startsWith("TITLE") || label.startsWith("JCAMP"))
            return true;
    }
    return false;
}
