#include "TCliOutputHelp.h"

#include "TCliTarget.h"

QVector<TCliOption> TCliOutputHelp::dataOptions()
{
    const QString forms = TCliTarget::formNames(TCliTarget::cData);
    return {{"-o", "OUT",
             QString("write the data to a file, whose ending says the form (%1), to a folder, or to "
                     "standard output (-)")
                 .arg(forms)},
            {"--to", "FORM", QString("the form of files in a folder and on standard output: %1").arg(forms)},
            {"--force", "", "replace files that exist; a file that is read is never written over"},
            {"--source-paths", "", "write the sources into jdx and pictures with their folders, as they were given"}};
}

QStringList TCliOutputHelp::dataNotes()
{
    return {"A folder (one that exists, or a name that ends in /) gets one file for each input, csv unless --to says "
            "otherwise. Several inputs need a folder. An input with several items gives NAME-1, NAME-2 and so on where "
            "the form holds one item.",
            "csv has the visible ranges in the shown units and no header; jdx and dx are "
            "JCAMP-DX, whole spectra on their original x axis; json is the form of process --json; klm is a "
            "document of the desktop."};
}
