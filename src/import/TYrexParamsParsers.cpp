#include "TYrexParamsParsers.h"

#include "TASCIIYrexParamsParser.h"
#include "TJCAMPYrexParamsParser.h"
#include "TYrexGalacticSpcParamsParser.h"
#include "TYrexOmnicSpaParamsParser.h"
#include "TYrexOpusParamsParser.h"
#include "TYrexSERSBTParamsParser.h"
#include "TYrexSPParamsParser.h"
#include "params/TParamsParsers.h"
#include "utils/TFileFormat.h"

#include <QThread>
#include <atomic>

namespace {

enum TState { cNotMade, cBeingMade, cReady };

std::atomic<int> gState{cNotMade};
TParamsParsers *gParsers = nullptr; // lives as long as the process

TParamsParsers *makeParsers()
{
    auto *parsers = new TParamsParsers;
    parsers->insert(Common::Types::cFormatCSV, new TASCIIYrexParamsParser);
    parsers->insert(Common::Types::cFormatJCAMP, new TJCAMPYrexParamsParser);
    parsers->insert(Common::Types::cFormatOMNIC, new TYrexOmnicSpaParamsParser);
    parsers->insert(Common::Types::cFormatOPUS, new TYrexOpusParamsParser);
    parsers->insert(Common::Types::cFormatSERSBT, new TYrexSERSBTParamsParser);
    parsers->insert(Common::Types::cFormatSP, new TYrexSPParamsParser);
    parsers->insert(Common::Types::cFormatSPC, new TYrexGalacticSpcParamsParser);
    return parsers;
}

} // namespace

TParamsParsers &yrexParamsParsers()
{
    int expected = cNotMade;
    if (gState.compare_exchange_strong(expected, cBeingMade)) {
        gParsers = makeParsers();
        gState.store(cReady);
    }
    while (gState.load() != cReady)
        QThread::yieldCurrentThread();
    return *gParsers;
}
