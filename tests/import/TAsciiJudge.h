#pragma once

#include <QByteArray>

struct TAsciiTable;

/// The rules of the text table, step by step on strings, slow and plain: the judge of the reader in use.
class TAsciiJudge
{
public:
    static bool accepts(const QByteArray &head);
    static int read(const QByteArray &bytes, TAsciiTable *table);
};
