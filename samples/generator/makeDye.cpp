#include "makeDye.h"

#include "TBands.h"
#include "TNoise.h"

#include <cmath>

namespace {

// nm, absorbance per micromole and litre in a cuvette of 1 cm, nm
const std::vector<TBand> cBands{
    {664.0, 0.0700, 36.0}, {612.0, 0.0330, 58.0}, {326.0, 0.0042, 34.0},
    {292.0, 0.0380, 22.0}, {246.0, 0.0165, 22.0}, {205.0, 0.0230, 30.0},
};

const double cConcentrations[] = {1.0, 2.0, 4.0, 6.0, 8.0, 10.0}; // micromoles in a litre

} // namespace

TTable makeDye()
{
    TTable table;
    table.fX = evenX(220.0, 800.0, 1.0);
    TNoise noise(664);
    for (const double concentration : cConcentrations) {
        const double cuvette = 0.0012 * noise.normal(); // no two stand quite alike in the beam
        std::vector<double> y;
        for (const double x : table.fX) {
            const double spread = 3e-4 * (1.0 + 3.0 * std::exp(-(x - 220.0) / 25.0)); // the lamp is weak there
            y.push_back(concentration * gaussAt(x, cBands) + cuvette + spread * noise.normal());
        }
        table.fColumns.push_back(y);
    }
    return table;
}
