#pragma once

#include <QString>
#include <functional>

/// Evaluates one formula of a parameter template.
///
///     formula = "=" expr          expr = literal | call
///     literal = '"' chars '"'     call = name "(" rest ")"     name = letter { letter | digit | "_" | "." }
///
/// The rest of a registered function (TTemplateFunctions) is a list of expressions with commas between; that of any
/// other name is raw text up to the balancing parenthesis, trimmed: a field. Blanks between the parts do not count.
class TTemplateFormula
{
public:
    static constexpr int cMaxDepth = 32; // calls in calls

    /// Answers field `name(key)`; null when there is no such thing.
    using TFieldReader = std::function<QString(const QString &name, const QString &key)>;

    explicit TTemplateFormula(const QString &text)
        : fText(text)
    {
    }
    /// A null text for what is no formula, also when only its end is not, and for calls nested deeper than cMaxDepth.
    QString evaluate(const TFieldReader &fields);

    /// Splits "name(argument)", which must be the whole text but for blanks. False for anything else.
    static bool splitCall(const QString &text, QString &name, QString &argument);

private:
    bool atEnd() const { return fPos >= fText.size(); }
    QChar next() const { return atEnd() ? QChar() : fText[fPos]; }
    void skipBlanks();
    bool take(char character);
    bool takeName(QString &name);
    bool takeRawArgument(QString &argument);
    QString expression(const TFieldReader &fields, int depth);
    QString literal();
    QString functionCall(const QString &name, const TFieldReader &fields, int depth);
    QString fail();

    QString fText;
    int fPos = 0;
    bool fFailed = false;
};
