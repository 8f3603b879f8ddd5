#include "plugin/TFileNode.h"

#include <QStringList>

namespace {

constexpr int cIndent = 2;
constexpr int cPlaceWidth = 22; // "@1234567 +12345678"
constexpr int cNameWidth = 30;
constexpr int cMaxValue = 160; // characters of a value that are shown

QString placeText(const TFileNode &node)
{
    if (node.fLine > 0)
        return QString("line %1").arg(node.fLine);
    if (node.fOffset < 0)
        return QString();
    return node.fSize < 0 ? QString("@%1").arg(node.fOffset) : QString("@%1 +%2").arg(node.fOffset).arg(node.fSize);
}

QString valueText(const QString &value)
{
    const QString line = value.simplified();
    return line.size() > cMaxValue ? line.left(cMaxValue) + "..." : line;
}

/// Bytes of a file that no terminal should see become question marks.
QString printable(QString text)
{
    for (QChar &c : text) {
        if (!c.isPrint())
            c = '?';
    }
    return text;
}

QString noteText(const TFileNode &node)
{
    const char *mark = node.fState == TFileNode::cSkipped  ? "skipped"
                       : node.fState == TFileNode::cBroken ? "broken"
                                                           : "";
    QStringList parts;
    if (*mark)
        parts.append(QLatin1String(mark));
    if (!node.fNote.isEmpty())
        parts.append(node.fNote);
    return parts.isEmpty() ? QString() : QString("(%1)").arg(parts.join(": "));
}

void appendText(const TFileNode &node, int depth, QString *text)
{
    QString line = placeText(node).leftJustified(cPlaceWidth);
    line += QString(depth * cIndent, ' ') + printable(node.fName);
    if (!node.fValue.isEmpty())
        line = line.leftJustified(cPlaceWidth + cNameWidth) + "  " + printable(valueText(node.fValue));
    const QString note = printable(noteText(node).simplified());
    if (!note.isEmpty())
        line += "  " + note;
    while (line.endsWith(' '))
        line.chop(1);
    *text += line + '\n';
    for (const TFileNode &row : node.fRows)
        appendText(row, depth + 1, text);
}

} // namespace

TFileNode &TFileNode::add(const QString &name, const QString &value, const QString &note)
{
    return addAt(-1, -1, name, value, note);
}

TFileNode &TFileNode::addAt(qint64 offset, qint64 size, const QString &name, const QString &value, const QString &note)
{
    TFileNode row;
    row.fName = name;
    row.fValue = value;
    row.fNote = note;
    row.fOffset = offset;
    row.fSize = size;
    fRows.append(row);
    return fRows.last();
}

TFileNode &TFileNode::addSkipped(const QString &name, const QString &why)
{
    TFileNode &row = add(name, QString(), why);
    row.fState = cSkipped;
    return row;
}

TFileNode &TFileNode::addBroken(const QString &name, const QString &expected)
{
    TFileNode &row = add(name, QString(), expected);
    row.fState = cBroken;
    return row;
}

QString TFileNode::text() const
{
    QString text;
    if (!isEmpty())
        appendText(*this, 0, &text);
    return text;
}
