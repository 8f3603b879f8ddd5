#include "ScriptText.h"

#include <QRegularExpression>

namespace {

constexpr int cIndent = 4;
const QString cOpening = QStringLiteral("([{");
const QString cClosing = QStringLiteral(")]}");

/// A slash begins a regular expression where a value may begin, and divides behind a value.
bool beginsExpression(const QString &before)
{
    const QString text = before.trimmed();
    if (text.isEmpty())
        return true;
    static const QRegularExpression cWord("(?:^|[^\\w$.])(return|typeof|case|in|of|delete|void|new|throw)$");
    const QChar last = text.back();
    const bool isValue = last.isLetterOrNumber() || QStringLiteral("_$)]}\"'").contains(last);
    return !isValue || cWord.match(text).hasMatch();
}

/// The place behind a string or regular expression that begins at a place; these end with their line at the latest.
int endOfQuoted(const QString &text, int begin)
{
    const QChar quote = text.at(begin);
    bool isInClass = false;
    for (int i = begin + 1; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c == '\\')
            ++i;
        else if (c == '\n')
            return i;
        else if (quote == '/' && (c == '[' || c == ']'))
            isInClass = c == '[';
        else if (c == quote && !isInClass)
            return i + 1;
    }
    return text.size();
}

int endOfComment(const QString &text, int begin)
{
    const bool isLine = text.at(begin + 1) == '/';
    const int end = text.indexOf(isLine ? QStringLiteral("\n") : QStringLiteral("*/"), begin + 2);
    return end < 0 ? text.size() : isLine ? end : end + 2;
}

} // namespace

QString ScriptText::code(const QString &text)
{
    QString code = text;
    int at = 0;
    while (at < text.size()) {
        const QChar c = text.at(at);
        const QChar next = at + 1 < text.size() ? text.at(at + 1) : QChar();
        int end = at;
        if (c == '/' && (next == '/' || next == '*'))
            end = endOfComment(text, at);
        else if (c == '"' || c == '\'' || (c == '/' && beginsExpression(code.left(at))))
            end = endOfQuoted(text, at);
        const bool isQuoted = c != '/' && end > at; // the quotes stay, so that one sees that there is a value
        const bool isClosed = isQuoted && end > at + 1 && text.at(end - 1) == c;
        for (int i = isQuoted ? at + 1 : at; i < (isClosed ? end - 1 : end); ++i) {
            if (text.at(i) != '\n')
                code[i] = ' ';
        }
        at = qMax(end, at + 1);
    }
    return code;
}

int ScriptText::partnerOf(const QString &text, int place)
{
    const QString shown = code(text);
    if (place < 0 || place >= shown.size())
        return -1;
    const QChar bracket = shown.at(place);
    const bool isOpening = cOpening.contains(bracket);
    if (!isOpening && !cClosing.contains(bracket))
        return -1;
    QString open; // brackets that wait for theirs
    for (int i = place; i >= 0 && i < shown.size(); i += isOpening ? 1 : -1) {
        const QString &same = isOpening ? cOpening : cClosing;
        const QString &other = isOpening ? cClosing : cOpening;
        const QChar c = shown.at(i);
        if (same.contains(c)) {
            open.append(c);
        } else if (other.contains(c)) {
            if (same.indexOf(open.back()) != other.indexOf(c))
                return -1;
            open.chop(1);
            if (open.isEmpty())
                return i;
        }
    }
    return -1;
}

QString ScriptText::indentAt(const QString &text, int cursor)
{
    const QString before = text.left(cursor);
    const QString line = before.mid(before.lastIndexOf('\n') + 1);
    int blanks = 0;
    while (blanks < line.size() && line.at(blanks) == ' ')
        ++blanks;
    const QString last = code(before).trimmed().right(1);
    const bool isOpen = !last.isEmpty() && cOpening.contains(last);
    return QString(blanks + (isOpen ? cIndent : 0), ' ');
}

ScriptText::TWord ScriptText::wordAt(const QString &text, int cursor)
{
    TWord word;
    const QString before = text.left(cursor);
    // a mark behind the cursor is blanked where the cursor stands in a string or a comment
    if (code(before + '@').right(1) != QLatin1String("@"))
        return word;
    static const QRegularExpression cWord(
        "(?:^|[^\\w$.\\])])((?:[A-Za-z_$][\\w$]*(?:\\[\\d+\\])*\\s*\\.\\s*)*)([A-Za-z_$][\\w$]*)?$");
    const QRegularExpressionMatch match = cWord.match(before);
    if (!match.hasMatch())
        return word;
    static const QRegularExpression cNames("[A-Za-z_$][\\w$]*|\\d+");
    QRegularExpressionMatchIterator names = cNames.globalMatch(match.captured(1));
    while (names.hasNext())
        word.fPath.append(names.next().captured());
    word.fPrefix = match.captured(2);
    word.fIsValid = true;
    return word;
}
