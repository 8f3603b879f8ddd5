#pragma once

#include "params/TParamsParser.h"

class TJCAMPBlock;

/// A parser whose keys are labels of a JCAMP-DX block.
class TBaseJCAMPParamsParser : public TParamsParser
{
public:
    using TParamsParser::value;
    /// The value of a label without comments, lines joined by line feeds, those of TITLE by blanks. Null when the block
    /// is null or has no such label.
    QString value(TJCAMPBlock *block, const QString &key);
    /// "##" and the label.
    QString parseParameterName(const QString &source, const QString &key) const override;
};
