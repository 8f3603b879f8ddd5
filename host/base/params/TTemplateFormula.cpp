#include "params/TTemplateFormula.h"

#include "params/TTemplateFunctions.h"

#include <QStringList>

QString TTemplateFormula::fail()
{
    fFailed = true;
    return QString();
}

void TTemplateFormula::skipBlanks()
{
    while (!atEnd() && next().isSpace())
        ++fPos;
}

/// Takes the character that stands next behind blanks, if it is this one.
bool TTemplateFormula::take(char character)
{
    skipBlanks();
    if (atEnd() || next() != QLatin1Char(character))
        return false;
    ++fPos;
    return true;
}

bool TTemplateFormula::takeName(QString &name)
{
    skipBlanks();
    const int start = fPos;
    if (!next().isLetter())
        return false;
    while (next().isLetterOrNumber() || next() == QLatin1Char('_') || next() == QLatin1Char('.'))
        ++fPos;
    name = fText.mid(start, fPos - start);
    return true;
}

/// Behind the opening parenthesis: everything up to the one that balances it, which is taken too.
bool TTemplateFormula::takeRawArgument(QString &argument)
{
    const int start = fPos;
    for (int open = 1; !atEnd(); ++fPos) {
        if (next() == QLatin1Char('('))
            ++open;
        else if (next() == QLatin1Char(')') && --open == 0) {
            argument = fText.mid(start, fPos - start).trimmed();
            ++fPos;
            return true;
        }
    }
    return false;
}

QString TTemplateFormula::literal()
{
    const int end = fText.indexOf(QLatin1Char('"'), fPos);
    if (end < 0)
        return fail();
    const QString text = fText.mid(fPos, end - fPos);
    fPos = end + 1;
    return text;
}

QString TTemplateFormula::functionCall(const QString &name, const TFieldReader &fields, int depth)
{
    QStringList arguments;
    if (!take(')')) {
        do {
            arguments.append(expression(fields, depth + 1));
        } while (!fFailed && take(','));
        if (fFailed || !take(')'))
            return fail();
    }
    return TTemplateFunctions::call(name, arguments);
}

QString TTemplateFormula::expression(const TFieldReader &fields, int depth)
{
    if (depth > cMaxDepth)
        return fail();
    if (take('"'))
        return literal();
    QString name;
    if (!takeName(name) || !take('('))
        return fail();
    if (TTemplateFunctions::contains(name))
        return functionCall(name, fields, depth);
    QString key;
    return takeRawArgument(key) ? fields(name, key) : fail();
}

QString TTemplateFormula::evaluate(const TFieldReader &fields)
{
    fPos = 0;
    fFailed = false;
    if (!take('='))
        return QString();
    const QString result = expression(fields, 1);
    skipBlanks();
    return fFailed || !atEnd() ? QString() : result;
}

bool TTemplateFormula::splitCall(const QString &text, QString &name, QString &argument)
{
    TTemplateFormula call(text);
    QString foundName;
    QString foundArgument;
    if (!call.takeName(foundName) || !call.take('(') || !call.takeRawArgument(foundArgument))
        return false;
    call.skipBlanks();
    if (!call.atEnd())
        return false;
    name = foundName;
    argument = foundArgument;
    return true;
}
