#include "exchange/TRowTable.h"

#include "settings/TNumberFormat.h"

#include <QFileInfo>
#include <QMimeData>
#include <QRegularExpression>

namespace {

/// A text that a spreadsheet would run as a formula gets the mark by which it knows a text. Numbers stay numbers.
QString harmlessCell(const QString &cell)
{
    static const QString cFormulas = QStringLiteral("=+-@");
    if (cell.size() < 2 || !cFormulas.contains(cell.at(0)))
        return cell;
    bool isNumber = false;
    TNumberFormat::plain(cell).toDouble(&isNumber); // either decimal sign, groups as well
    return isNumber ? cell : '\'' + cell;
}

QString csvCell(QString cell)
{
    static const QRegularExpression cSpecial("[\",;\t\r\n]");
    return cell.contains(cSpecial) ? '"' + cell.replace('"', "\"\"") + '"' : cell;
}

QString plainCell(QString cell)
{
    static const QRegularExpression cBreaks("[\t\r\n]+");
    return cell.replace(cBreaks, " ");
}

} // namespace

QString TRowTable::line(const QStringList &cells, TForm form) const
{
    QStringList texts;
    for (const QString &anyCell : cells) {
        const QString cell = harmlessCell(anyCell);
        texts.append(form == cCsv ? csvCell(cell) : form == cTabs ? plainCell(cell) : cell.toHtmlEscaped());
    }
    return texts.join(form == cCsv ? "," : form == cTabs ? "\t" : "</td><td>");
}

QByteArray TRowTable::bytes(TForm form) const
{
    QString text;
    if (form == cHtml) {
        text = "<table>\n<tr><th>" + line(fHeader, form).replace("td>", "th>") + "</th></tr>\n";
        for (const QStringList &row : fRows)
            text += "<tr><td>" + line(row, form) + "</td></tr>\n";
        return QString("<!DOCTYPE html>\n<meta charset=\"utf-8\">\n%1</table>\n").arg(text).toUtf8();
    }
    text = line(fHeader, form) + '\n';
    for (const QStringList &row : fRows)
        text += line(row, form) + '\n';
    return text.toUtf8();
}

QMimeData *TRowTable::mimeData() const
{
    auto *data = new QMimeData;
    data->setText(QString::fromUtf8(bytes(cTabs)));
    data->setHtml(QString::fromUtf8(bytes(cHtml)));
    return data;
}

TRowTable::TForm TRowTable::formOf(const QString &path)
{
    const QString ending = QFileInfo(path).suffix().toLower();
    if (ending == QLatin1String("csv"))
        return cCsv;
    return ending.startsWith(QLatin1String("htm")) ? cHtml : cTabs;
}
