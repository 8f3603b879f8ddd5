#include "jcamp/TJCAMPRecord.h"

namespace {

bool isLineEnd(char c)
{
    return c == '\n' || c == '\r';
}

bool isLeftOut(char c)
{
    return c == ' ' || c == '-' || c == '/' || c == '_' || c == '\t';
}

char upper(char c)
{
    return c >= 'a' && c <= 'z' ? char(c - 'a' + 'A') : c;
}

} // namespace

qint64 TJCAMPRecord::valueStart(const QByteArray &text) const
{
    const char *bytes = text.constData();
    qint64 at = qint64(fStart) + 2;
    while (at < fEnd && bytes[at] != '=' && !isLineEnd(bytes[at]))
        ++at;
    return at < fEnd && bytes[at] == '=' ? at + 1 : at;
}

QByteArray TJCAMPRecord::label(const QByteArray &text) const
{
    const qint64 begin = qint64(fStart) + 2;
    qint64 end = valueStart(text);
    if (end > begin && text[int(end - 1)] == '=')
        --end;
    return text.mid(int(begin), int(end - begin)).trimmed();
}

QByteArray TJCAMPRecord::value(const QByteArray &text) const
{
    const char *p = text.constData() + valueStart(text);
    const char *end = text.constData() + fEnd;
    QByteArray value("");
    while (p < end) {
        const char *lineEnd = p;
        while (lineEnd < end && !isLineEnd(*lineEnd))
            ++lineEnd;
        const char *last = lineEnd;
        while (last > p && (last[-1] == ' ' || last[-1] == '\t'))
            --last;
        if (value.isEmpty()) {
            while (p < last && (*p == ' ' || *p == '\t'))
                ++p;
        }
        if (last > p) {
            if (!value.isEmpty())
                value.append('\n');
            value.append(p, int(last - p));
        }
        p = lineEnd + 1;
    }
    return value;
}

bool TJCAMPRecord::isLabelled(const QByteArray &text, const QByteArray &unified) const
{
    const char *p = text.constData() + fStart + 2;
    const char *end = text.constData() + fEnd;
    int matched = 0;
    for (; p < end && *p != '=' && !isLineEnd(*p); ++p) {
        if (isLeftOut(*p))
            continue;
        if (matched >= unified.size() || upper(*p) != unified[matched])
            return false;
        ++matched;
    }
    return matched == unified.size();
}
