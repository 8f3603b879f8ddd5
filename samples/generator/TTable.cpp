#include "TTable.h"

#include <cmath>
#include <cstdio>

std::vector<double> evenX(double first, double last, double step)
{
    const int count = int(std::lround((last - first) / step)) + 1;
    std::vector<double> x;
    for (int i = 0; i < count; ++i)
        x.push_back(first + i * step);
    return x;
}

bool writeTable(const TTable &table, const std::string &path)
{
    std::FILE *file = std::fopen(path.c_str(), "wb");
    if (!file)
        return false;
    for (size_t row = 0; row < table.fX.size(); ++row) {
        std::fprintf(file, "%.*f", table.fXDecimals, table.fX[row]);
        for (const std::vector<double> &column : table.fColumns)
            std::fprintf(file, ",%.*f", table.fYDecimals, column[row]);
        std::fputc('\n', file);
    }
    const bool good = std::ferror(file) == 0;
    return std::fclose(file) == 0 && good;
}
