#include "TCliArguments.h"

#include "TCliFileList.h"
#include "TCliSyntax.h"

bool TCliArguments::takeOption(const TCliSyntax &syntax, const QStringList &arguments, int &index, QString &error)
{
    const QString &argument = arguments.at(index);
    const int equals = argument.startsWith("--") ? argument.indexOf('=') : -1;
    const QString name = argument.left(equals);
    const TCliOption *option = syntax.option(name);
    if (!option) {
        error = QString("unknown option %1").arg(name);
        return false;
    }
    if (option->fState == TCliOption::cPlanned)
        error = QString("%1 is not available in this version").arg(name);
    else if (has(name) && !option->fRepeats)
        error = QString("%1 is given twice").arg(name);
    else if (!option->takesArgument() && equals >= 0)
        error = QString("%1 takes no argument").arg(name);
    if (!error.isEmpty())
        return false;

    QString value;
    if (option->takesArgument()) {
        const bool isNext = equals < 0 && index + 1 < arguments.size() && !arguments.at(index + 1).startsWith("--");
        value = isNext ? arguments.at(++index) : equals < 0 ? QString() : argument.mid(equals + 1);
        if (value.isEmpty()) {
            error = QString("%1 needs an argument (%2)").arg(name, option->fArgument);
            return false;
        }
    }
    fOptions.append({name, value});
    return true;
}

bool TCliArguments::parse(const TCliSyntax &syntax, const QStringList &arguments, QString &error)
{
    bool onlyOperands = false;
    for (int i = 0; i < arguments.size(); ++i) {
        const QString &argument = arguments.at(i);
        if (!onlyOperands && argument == "--")
            onlyOperands = true;
        else if (onlyOperands || argument == "-" || !argument.startsWith('-'))
            fOperands.append(argument);
        else if (!takeOption(syntax, arguments, i, error))
            return false;
    }
    if (has("--help"))
        return true;
    if (fOperands.size() < syntax.fMinOperands && !has(TCliFileList::cOption))
        error = QString("missing argument: %1").arg(syntax.fOperands);
    else if (syntax.fMaxOperands >= 0 && fOperands.size() > syntax.fMaxOperands)
        error = QString("too many arguments: %1").arg(fOperands.at(syntax.fMaxOperands));
    else if (fOperands.contains(QString()))
        error = "an argument is empty";
    return error.isEmpty();
}

bool TCliArguments::has(const QString &option) const
{
    for (const auto &entry : fOptions) {
        if (entry.first == option)
            return true;
    }
    return false;
}

QString TCliArguments::value(const QString &option) const
{
    for (const auto &entry : fOptions) {
        if (entry.first == option)
            return entry.second;
    }
    return QString();
}

QStringList TCliArguments::values(const QString &option) const
{
    QStringList values;
    for (const auto &entry : fOptions) {
        if (entry.first == option)
            values.append(entry.second);
    }
    return values;
}
