#pragma once

#include <string>
#include <vector>

/// A table of x and one or more y columns, to be written without a header.
struct TTable
{
    std::vector<double> fX;
    std::vector<std::vector<double>> fColumns;
    int fXDecimals = 0;
    int fYDecimals = 5; // at least one: without a point in its last line a table would read as decimal commas
};

/// Points first, first + step, .. up to last, which is one of them.
std::vector<double> evenX(double first, double last, double step);

/// False when the file cannot be written.
bool writeTable(const TTable &table, const std::string &path);
