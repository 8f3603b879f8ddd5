#pragma once

#include "TASCIIYrexParamsParser.h"

#include <QMap>

/// Parameters of OMNIC files out of the sidecar "OMNIC_METADATA": the keys ORNAM (original name), COMMT (comment) and
/// HIST (history).
class TYrexOmnicSpaParamsParser : public TASCIIYrexParamsParser
{
public:
    TYrexOmnicSpaParamsParser();

    /// Null for other sources, empty for a key that the sidecar lacks.
    QString value(const QString &source, const QString &key, const QString &path) override;
    using TParamsParser::value;
    void reset() override;
    TSpectrumParamsTemplate defaultTemplates() const override;
    bool isParseable(const QString &source) const override;
    void loadSource(const QString &source, const QString &path) override;

private:
    QMap<QString, QString> fTexts; // by key
};
