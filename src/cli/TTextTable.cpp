#include "TTextTable.h"

#include "utils/StringUtils.h"

using Utils::String::printable;

QString TTextTable::text() const
{
    constexpr int cGap = 2;
    QVector<int> widths;
    for (const QStringList &row : fRows) {
        for (int i = 0; i < row.size(); ++i) {
            if (i == widths.size())
                widths.append(0);
            widths[i] = qMax(widths.at(i), printable(row.at(i).simplified()).size());
        }
    }
    QString text;
    for (const QStringList &row : fRows) {
        QString line(fIndent, ' ');
        for (int i = 0; i < row.size(); ++i)
            line += printable(row.at(i).simplified()).leftJustified(widths.at(i) + cGap);
        while (line.endsWith(' '))
            line.chop(1);
        text += line + '\n';
    }
    return text;
}
