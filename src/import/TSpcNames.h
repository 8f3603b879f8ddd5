#pragma once

#include <QString>

/// What the codes of SPC headers mean.

/// Texts of the codes; empty for a code without one, "-" for a code that is not in use.
QString spcExperimentName(int code);
QString spcXTypeName(int code);
QString spcYTypeName(int code);

/// Unit codes of the axes.
int spcXUnit(int xType);
int spcYUnit(int yType, bool oldHeader);
