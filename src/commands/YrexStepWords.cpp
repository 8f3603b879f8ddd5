#include "YrexStepWords.h"

#include "commands/ScriptWords.h"
#include "utils/TFileFormat.h"

QString YrexStepWords::displayMode(int mode)
{
    return displayModes().value(mode);
}

QStringList YrexStepWords::displayModes()
{
    return {"active only", "stacked", "overlay", "bitmap", "hidden lines", "queued", "none", "grouped"};
}

QStringList YrexStepWords::features()
{
    return {"integral labels", "integrals", "integral curves"};
}

const TScriptWords &YrexStepWords::formats()
{
    using namespace Common::Types;
    static const TScriptWords cWords({{"csv", cFormatCSV},
                                      {"jcamp", cFormatJCAMP},
                                      {"omnic", cFormatOMNIC},
                                      {"opus", cFormatOPUS},
                                      {"sersbt", cFormatSERSBT},
                                      {"sp", cFormatSP},
                                      {"spc", cFormatSPC}});
    return cWords;
}
