#include "TAsciiInspection.h"

#include "TAsciiTable.h"
#include "TAsciiTokens.h"

#include <QIODevice>

namespace {

constexpr qint64 cShownBytes = 128 * 1024; // of the text are told line by line

QString lineText(const TAsciiLine &line)
{
    return QString::fromUtf8(line.fBegin, line.size());
}

/// The words in front of and between the numbers, and the first line of numbers.
void addLines(const QByteArray &head, TFileNode *text)
{
    const char *begin = head.constData();
    const char *end = begin + head.size();
    TAsciiLines lines(TAsciiLines::textStart(begin, end), end);
    TAsciiLine line;
    int number = 0;
    int words = 0;
    int numeric = 0;
    while (lines.next(&line)) {
        ++number;
        if (looksLikeNumbers(line)) {
            if (++numeric == 1)
                text->add("first line of numbers", lineText(line)).fLine = number;
        } else if (!lineText(line).trimmed().isEmpty() && ++words <= TFileNode::cMaxShown) {
            TFileNode &row = text->addSkipped("words", "no line of numbers");
            row.fValue = lineText(line);
            row.fLine = number;
        }
    }
    if (words > TFileNode::cMaxShown)
        text->addSkipped(QString("%1 more lines of words").arg(words - TFileNode::cMaxShown), QString());
    text->add("lines", QString::number(number), QString("%1 of numbers").arg(numeric));
}

void addTable(const TAsciiTable &table, TFileNode *text)
{
    text->add("y columns", QString::number(table.fY.size()));
    text->add("rows", QString::number(table.fKeys.isEmpty() ? table.fPointCount : table.fKeys.size()));
    if (table.fKeys.isEmpty()) {
        text->add("x axis", QString("1 .. %1").arg(table.fPointCount), "a single column: rows count");
        return;
    }
    text->add("x axis", QString("%1 .. %2").arg(table.fFirstX, 0, 'g', 10).arg(table.fLastX, 0, 'g', 10),
              table.fIrregular ? QString("uneven: put onto an even grid of %1 points").arg(table.fPointCount)
                               : QString("taken as even"));
}

} // namespace

TFileNode inspectAsciiTable(QIODevice *device)
{
    TFileNode text;
    device->seek(0);
    const QByteArray head = device->read(cShownBytes);
    if (head.isEmpty())
        return text;
    text.fName = "text";
    text.fOffset = 0;
    text.fSize = device->size();
    if (head.startsWith("\xEF\xBB\xBF"))
        text.addAt(0, 3, "byte order mark", "UTF-8");
    addLines(head, &text);
    if (text.fSize > head.size())
        text.fRows.last().fNote += QString(", in the first %1 bytes").arg(head.size());
    TAsciiTable table;
    QString problem;
    if (readAsciiTable(device, &table, &problem) == 0)
        addTable(table, &text);
    else
        text.addBroken("table", problem);
    return text;
}
