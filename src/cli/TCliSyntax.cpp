#include "TCliSyntax.h"

namespace {

constexpr int cHelpWidth = 78;
constexpr int cHelpColumn = 24; // where the texts of options begin

/// The words of a text in lines of at most cHelpWidth characters, all but the first indented.
QString wrapped(const QString &text, int indent)
{
    QString result;
    int column = indent;
    for (const QString &word : text.split(' ', Qt::SkipEmptyParts)) {
        if (column > indent && column + 1 + word.size() > cHelpWidth) {
            result += '\n' + QString(indent, ' ');
            column = indent;
        } else if (column > indent) {
            result += ' ';
            ++column;
        }
        result += word;
        column += word.size();
    }
    return result + '\n';
}

QString optionHelp(const TCliOption &option)
{
    QString head = "  " + option.fName;
    if (option.takesArgument())
        head += ' ' + option.fArgument;
    head = head.leftJustified(cHelpColumn);
    if (head.size() > cHelpColumn || !head.endsWith(' '))
        head += '\n' + QString(cHelpColumn, ' ');
    return head + wrapped(option.fHelp, cHelpColumn);
}

} // namespace

const TCliOption *TCliSyntax::option(const QString &name) const
{
    for (const TCliOption &option : fOptions) {
        if (option.fName == name)
            return &option;
    }
    return nullptr;
}

QString TCliSyntax::help() const
{
    QString text = QString("zarnu %1 %2[OPTION]...\n\n").arg(fName, fOperands.isEmpty() ? QString() : fOperands + ' ');
    text += wrapped(fSummary, 0) + "\nOptions:\n";
    for (const TCliOption &option : fOptions) {
        if (option.fState == TCliOption::cOffered)
            text += optionHelp(option);
    }
    for (const QString &note : fNotes)
        text += '\n' + wrapped(note, 0);
    return text;
}
