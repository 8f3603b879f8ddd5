#pragma once

#include "TASCIIYrexParamsParser.h"

/// Parameters of SERSBT files out of their sidecar: "MISCPAR" all of them in one line.
class TYrexSERSBTParamsParser : public TASCIIYrexParamsParser
{
public:
    TYrexSERSBTParamsParser();

    QString value(const QString &source, const QString &key, const QString &path) override;
    using TASCIIYrexParamsParser::value;
    void reset() override;
    TSpectrumParamsTemplate defaultTemplates() const override;
    bool isParseable(const QString &source) const override;
    void loadSource(const QString &source, const QString &path) override;

private:
    QString fMiscParameters;
};
