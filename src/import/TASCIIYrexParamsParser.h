#pragma once

#include "params/TParamsParser.h"

/// Parameters of text tables: "key: value" lines anywhere in the file, as the source "header". Parsers of other formats
/// that keep their texts as lines build on it.
class TASCIIYrexParamsParser : public TParamsParser
{
public:
    TASCIIYrexParamsParser();

    QString value(const QString &source, const QString &key, const QString &path) override;
    using TParamsParser::value;
    void reset() override;
    TSpectrumParamsTemplate defaultTemplates() const override;
    bool isParseable(const QString &source) const override;
    void loadSource(const QString &source, const QString &path) override;

    /// The rest of the first line that begins with `key`, whatever its case, behind a blank or one of "=,;:"; trimmed,
    /// and without the double quotes around it. A line begins and ends with "\n". Invalid when there is none.
    static QVariant findDelimitedValue(const QString &key, const QString &text);

private:
    QString fText; // of the file between two line ends
};
