#pragma once

#include "params/TBinaryParamsParser.h"

#include <QMap>

/// Parameters of PerkinElmer files out of the sidecar "SP_METADATA", whose lines are "key: value".
class TYrexSPParamsParser : public TBinaryParamsParser
{
public:
    TYrexSPParamsParser();

    /// Null for other sources and for a key that the sidecar lacks.
    QString value(const QString &source, const QString &key, const QString &path) override;
    using TParamsParser::value;
    void reset() override;
    TSpectrumParamsTemplate defaultTemplates() const override;
    bool isParseable(const QString &source) const override;
    void loadSource(const QString &source, const QString &path) override;

private:
    QMap<QString, QString> fTexts; // by key
};
