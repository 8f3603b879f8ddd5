#include "TCliFormats.h"

#include "TCliArguments.h"
#include "TCliEnvironment.h"
#include "TCliSyntax.h"
#include "TTextTable.h"
#include "plugin/IConsole.h"
#include "plugin/IConverter.h"
#include "services/IBatchHost.h"
#include "services/TImportDriver.h"

TCliSyntax TCliFormats::syntax() const
{
    TCliSyntax syntax;
    syntax.fName = "formats";
    syntax.fSummary = "Lists the file formats: name, filter text, whether files are read and written.";
    syntax.fOperands.clear();
    syntax.fMinOperands = 0;
    syntax.fMaxOperands = 0;
    syntax.fNotes = QStringList{"The names are those of --format. Documents of the desktop (.klm) are read and written "
                                "by every command that takes files."};
    return syntax;
}

int TCliFormats::run(const TCliArguments &, const TCliEnvironment &environment)
{
    TTextTable table;
    table.addRow({"Name", "Filter", "Reads", "Writes"});
    for (const IConverter *converter : environment.fBatch.importDriver().converters()) {
        const QStringList readFilters = converter->importFilterList();
        const QStringList writeFilters = converter->exportFilterList();
        QStringList filters = readFilters + writeFilters;
        filters.removeDuplicates();
        table.addRow({converter->formatName(), filters.join("; "), readFilters.isEmpty() ? "" : "yes",
                      writeFilters.isEmpty() ? "" : "yes"});
    }
    environment.fConsole.out(table.text().toUtf8());
    return cCliAllDone;
}
