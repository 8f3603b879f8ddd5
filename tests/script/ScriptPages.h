#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

/// A fenced block of a page.
struct TScriptExample
{
    QString fPlace; // page:line
    QString fText;
    bool fFails = false; // marked as one that ends in an error

    /// The texts behind "// KIND " in their order.
    QStringList expected(const QString &kind) const;
    /// The text; that of a failing one prints the error's message and code.
    QString runnable() const;
};

/// What stands below a heading with a name in backticks.
struct TScriptEntry
{
    QString fCall; // the name with the brackets of calls
    QString fText; // without the examples
    QString fExamples;
};

/// Reads the pages that tell the language of scripts: examples are blocks ```js, entries are headings of the third
/// level with names in backticks.
namespace ScriptPages {

QVector<TScriptExample> examples(const QString &folder);
/// By the names that are in headings, without the brackets of calls.
QMap<QString, TScriptEntry> entries(const QString &folder);

} // namespace ScriptPages
