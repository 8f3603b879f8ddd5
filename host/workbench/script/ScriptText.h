#pragma once

#include <QString>
#include <QStringList>

/// What an editor of scripts has to know of their text.
namespace ScriptText {

/// The text with comments, regular expressions and what is inside strings blanked, so that brackets and names that are
/// left mean something. As long as the text.
QString code(const QString &text);
/// The place of the bracket that belongs to the one at a place; -1 when there is none, or no bracket stands there.
int partnerOf(const QString &text, int place);
/// Blanks for the line behind a cursor: those of its line, and more behind an open bracket.
QString indentAt(const QString &text, int cursor);

/// What is to be completed at a cursor: names before the last dot, and the letters behind it.
struct TWord
{
    bool fIsValid = false; // not inside a string, and not of what a call gave
    QStringList fPath;     // names, and numbers of "[0]"
    QString fPrefix;
};
TWord wordAt(const QString &text, int cursor);

} // namespace ScriptText
