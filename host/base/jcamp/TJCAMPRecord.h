#pragma once

#include <QByteArray>
#include <QtGlobal>

/// Where one "##label=value" stands in the bytes of its file. No text is copied.
struct TJCAMPRecord
{
    quint32 fStart = 0; // the first "#"
    quint32 fEnd = 0;   // the first byte of the next record's line, or the end of the file

    /// The first byte behind "=", or the end of the label's line where that has none.
    qint64 valueStart(const QByteArray &text) const;
    /// The label as it is written, trimmed.
    QByteArray label(const QByteArray &text) const;
    /// The value: lines joined by "\n", each without its line end; blank ones are left out, and the first is trimmed.
    QByteArray value(const QByteArray &text) const;
    /// Whether the label, unified, equals a unified text.
    bool isLabelled(const QByteArray &text, const QByteArray &unified) const;
};
