#pragma once

#include "params/TBinaryParamsParser.h"

/// Parameters of SPC files: fields of the headers, with the texts of their codes, and "KEY=value" lines of the log.
class TYrexGalacticSpcParamsParser : public TBinaryParamsParser
{
public:
    TYrexGalacticSpcParamsParser();

    /// Sources: names that end with "spchdr" or "subhdr", fields of headers, and "logtext", keys of the log. The codes
    /// of experiment, X and Y type become their texts.
    QString value(const QString &source, const QString &key, const QString &path) override;
    using TParamsParser::value;
    void reset() override;
    TSpectrumParamsTemplate defaultTemplates() const override;
    bool isParseable(const QString &source) const override;
    void loadSource(const QString &source, const QString &path) override;

    /// What stands between the first "=" behind `key` and the end of that line, trimmed and without the double quotes
    /// around it. The key may stand anywhere, in any case. Invalid without key, "=" or line end.
    static QVariant findAssignedValue(const QString &key, const QString &text);

private:
    QString fLogText; // Latin-1, with a line end behind it
};
