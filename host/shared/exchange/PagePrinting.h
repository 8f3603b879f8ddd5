#pragma once

#include <QList>
#include <QString>
#include <functional>

class QPrinter;
class QTextDocument;
class TDocument;
class TPage;

/// Pages on paper: at their true size, or scaled to fit where the paper cannot hold them.
namespace PagePrinting {

/// By how much the page is scaled on the printer's paper: 1 at true size.
double scale(const QPrinter &printer, const TPage &page);
/// Gives a printer paper of the size of the page. The page has margins of its own, so that the whole paper is used.
void setPaper(QPrinter &printer, const TPage &page);
/// Draws with a printer. One that prints to a file gets the file written as every other is, whole or not at all; other
/// ones print as they do. `draw` returns false when the printer does not take the job. False with the reason in words.
bool run(QPrinter &printer, const std::function<bool()> &draw, QString &error);
/// Draws the pages, each on a sheet of its own and in its middle. False with the reason in words.
bool print(QPrinter &printer, const QList<TPage *> &pages, QString &error);
/// Prints a text on as many sheets as it needs. False with the reason in words.
bool printText(QPrinter &printer, const QTextDocument &text, QString &error);
/// Prints all pages of a document without asking: on the printer of that name, the standard one without, or into a PDF
/// file. False with the reason in words.
bool print(const TDocument &document, const QString &printer, bool isFile, QString &error);

} // namespace PagePrinting
