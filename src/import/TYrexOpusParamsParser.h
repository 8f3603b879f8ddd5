#pragma once

#include "params/TBinaryParamsParser.h"

#include <QMap>

/// Parameters of OPUS files out of their sidecar: "HIST" the history, "MISCPAR" all parameters that describe the
/// measurement.
class TYrexOpusParamsParser : public TBinaryParamsParser
{
public:
    TYrexOpusParamsParser();

    QString value(const QString &source, const QString &key, const QString &path) override;
    using TBinaryParamsParser::value;
    void reset() override;
    TSpectrumParamsTemplate defaultTemplates() const override;
    bool isParseable(const QString &source) const override;
    void loadSource(const QString &source, const QString &path) override;

private:
    QMap<QString, QString> fTexts; // by key
};
