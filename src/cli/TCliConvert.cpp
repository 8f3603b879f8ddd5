#include "TCliConvert.h"

#include "TCliArguments.h"
#include "TCliOutputHelp.h"
#include "TCliWriter.h"

TCliSyntax TCliConvert::syntax() const
{
    TCliSyntax syntax;
    syntax.fName = "convert";
    syntax.fOperands = "FILE... -o OUT";
    syntax.fSummary = "Imports files and writes them in another form.";
    syntax.fOptions = TCliOutputHelp::dataOptions() + fileOptions();
    syntax.fNotes = TCliOutputHelp::dataNotes();
    return syntax;
}

bool TCliConvert::prepare(const TCliArguments &arguments, const TCliEnvironment &, QString &error)
{
    if (!arguments.has("-o"))
        error = "missing argument: -o OUT";
    fTarget.setSources(inputs());
    return error.isEmpty() && fTarget.plan(TCliTarget::cData, arguments, inputs(), error);
}

void TCliConvert::work(TCliInput &input, int index, const TCliEnvironment &environment, QByteArray &out)
{
    TCliWriter(environment, fTarget).write(input, index, out);
}
