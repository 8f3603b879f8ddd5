// Writes the sample spectra into the folder named on the command line.
#include "makeDye.h"
#include "makeNir.h"
#include "makePolystyrene.h"
#include "makeRaman.h"

#include <cstdio>
#include <string>

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: yrex_samples FOLDER\n");
        return 2;
    }
    const struct
    {
        const char *fName;
        TTable (*fMake)();
    } samples[] = {
        {"polystyrene.csv", makePolystyrene},
        {"raman.csv", makeRaman},
        {"dye.csv", makeDye},
        {"nir.csv", makeNir},
    };
    for (const auto &sample : samples) {
        const std::string path = std::string(argv[1]) + '/' + sample.fName;
        if (!writeTable(sample.fMake(), path)) {
            std::fprintf(stderr, "yrex_samples: cannot write %s\n", path.c_str());
            return 1;
        }
    }
    return 0;
}
