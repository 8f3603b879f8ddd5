#pragma once

#include "params/TSpectrumParams.h"

#include <QList>
#include <map>
#include <memory>

class TParamsBundle;
class TParamsParser;

/// The parsers by file format.
class TParamsParsers
{
public:
    TParamsParsers();
    ~TParamsParsers();
    TParamsParsers(const TParamsParsers &) = delete;
    TParamsParsers &operator=(const TParamsParsers &) = delete;

    /// The parser of a format, or null.
    TParamsParser *value(int format) const;
    TParamsParser *operator[](int format) const { return value(format); }
    /// Takes ownership and deletes the parser that served the format before.
    void insert(int format, TParamsParser *parser);
    /// The formats that have a parser, ascending.
    QList<int> formats() const;

    /// Evaluates the template of the bundle's format, one parameter per entry; null texts where an entry has no
    /// expression or gives nothing. Empty for a format without parser.
    static TSpectrumParams parse(const TParamsParsers &parsers, const TParamsBundle &bundle, int dimCount);

private:
    std::map<int, std::unique_ptr<TParamsParser>> fParsers;
};
