#pragma once

#include "params/TParamsParser.h"

#include <QDataStream>

/// A parser whose keys are fields of binary headers: "type;offset" or "type;offset;length", with the type byte, word
/// (unsigned), int16, int32, float or string, and the byte offset into the blob.
class TBinaryParamsParser : public TParamsParser
{
public:
    explicit TBinaryParamsParser(QDataStream::ByteOrder order)
        : fOrder(order)
    {
    }

    using TParamsParser::value;
    /// Integers in decimal, floats with 9 significant digits, whole ones without exponent. A string is Latin-1 and
    /// ends at its first zero byte, at `length` or at the blob's end. Null for a missing blob, for a field that leaves
    /// the blob and for any other key.
    QString value(const QString &source, const QString &key, const QString &path) override;

protected:
    bool needsBlob(const QString &source) const override;
    QDataStream::ByteOrder byteOrder() const { return fOrder; }

private:
    QDataStream::ByteOrder fOrder;
};
