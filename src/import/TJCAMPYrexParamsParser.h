#pragma once

#include "jcamp/TBaseJCAMPParamsParser.h"

#include <memory>

class TJCAMPBlock;
class TJCAMPFileMarking;

/// Parameters of JCAMP-DX blocks: the labels in front of the data, as the source "header".
class TJCAMPYrexParamsParser : public TBaseJCAMPParamsParser
{
public:
    TJCAMPYrexParamsParser();
    ~TJCAMPYrexParamsParser() override;

    QString value(const QString &source, const QString &key, const QString &path) override;
    using TBaseJCAMPParamsParser::value;
    void reset() override;
    TSpectrumParamsTemplate defaultTemplates() const override;
    QString parseParameterName(const QString &source, const QString &key) const override;
    bool isParseable(const QString &source) const override;
    /// Marks the text of the source and remembers its last block.
    void loadSource(const QString &source, const QString &path) override;

private:
    std::unique_ptr<TJCAMPFileMarking> fMarking;
    TJCAMPBlock *fBlock = nullptr; // of the marking
};
