#include "services/ReportText.h"

#include "services/IReportService.h"

#include <QStringList>

namespace {

constexpr int cColumns = 78;
constexpr int cIndent = 4;

QString htmlRows(const TReport::TRows &rows)
{
    QString text = "<table style=\"border-collapse:collapse;margin-bottom:12px\">\n";
    for (const auto &row : rows)
        text += QString("<tr><td style=\"padding:1px 16px 1px 0\">%1</td><td>%2</td></tr>\n")
                    .arg(row.first.toHtmlEscaped(), row.second.toHtmlEscaped());
    return text + "</table>\n";
}

/// Breaks a line between words, or within one that is too long for a line of its own.
QString wrapped(const QString &line)
{
    QStringList lines;
    QString rest = line;
    int room = cColumns;
    while (rest.size() > room) {
        const int space = rest.lastIndexOf(' ', room);
        const int at = space > cIndent ? space : room;
        lines.append(rest.left(at));
        rest = QString(cIndent, ' ') + rest.mid(at).trimmed();
    }
    lines.append(rest);
    return lines.join('\n') + '\n';
}

QString plainRows(const TReport::TRows &rows, int indent)
{
    QString text;
    for (const auto &row : rows)
        text += wrapped(QString(indent, ' ') + row.first + ": " + row.second);
    return text;
}

} // namespace

QString ReportText::html(const TReport &report, bool withHead)
{
    const QString title = report.fTitle.toHtmlEscaped();
    QString text = "<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>" + title +
                   "</title><style>@page{size:A4;margin:20mm}</style></head>\n"
                   "<body style=\"font-family:sans-serif\">\n<h2>" +
                   title + "</h2>\n";
    if (withHead)
        text += htmlRows(report.fHead);
    int number = 0;
    for (const TReport::TSection &section : report.fSections) {
        text += QString("<h3>%1. %2</h3>\n").arg(QString::number(++number), section.fTitle.toHtmlEscaped());
        if (!section.fRows.isEmpty())
            text += htmlRows(section.fRows);
    }
    if (!report.fFoot.isEmpty())
        text += "<p>" + report.fFoot.toHtmlEscaped() + "</p>\n";
    return text + "</body></html>\n";
}

QString ReportText::plain(const TReport &report, bool withHead)
{
    QString text = wrapped(report.fTitle) + '\n';
    if (withHead)
        text += plainRows(report.fHead, 0) + '\n';
    int number = 0;
    for (const TReport::TSection &section : report.fSections) {
        text += wrapped(QString("%1. %2").arg(QString::number(++number), section.fTitle));
        text += plainRows(section.fRows, cIndent);
    }
    if (!report.fFoot.isEmpty())
        text += wrapped(report.fFoot);
    return text;
}
