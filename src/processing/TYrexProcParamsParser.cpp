#include "TYrexProcParamsParser.h"

TYrexProcParamsParser::TYrexProcParamsParser(const QString &path)
    : fParts(path.split(QLatin1Char('.')))
{
}

bool TYrexProcParamsParser::next()
{
    if (!atEnd())
        ++fCursor;
    return !atEnd();
}
