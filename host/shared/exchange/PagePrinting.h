#pragma once

#include <QList>
#include <QString>

class QPrinter;
class TDocument;
class TPage;

/// Pages on paper: at their true size, or scaled to fit where the paper cannot hold them.
namespace PagePrinting {

/// By how much the page is scaled on the printer's paper: 1 at true size.
double scale(const QPrinter &printer, const TPage &page);
/// Gives a printer paper of the size of the page. The page has margins of its own, so that the whole paper is used.
void setPaper(QPrinter &printer, const TPage &page);
/// Draws the pages, each on a sheet of its own and in its middle. False when the printer does not take the job.
bool print(QPrinter &printer, const QList<TPage *> &pages);
/// Prints all pages of a document without asking: on the printer of that name, the standard one without, or into a PDF
/// file. False with the reason in words.
bool print(const TDocument &document, const QString &printer, bool isFile, QString &error);

} // namespace PagePrinting
