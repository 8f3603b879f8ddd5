#include "params/TTemplateFunctions.h"

#include <QHash>

namespace {

QString firstNotEmptyString(const QStringList &arguments)
{
    for (const QString &argument : arguments) {
        if (!argument.isEmpty())
            return argument;
    }
    return QString();
}

QHash<QString, TTemplateFunctions::TFunction> &registry()
{
    static QHash<QString, TTemplateFunctions::TFunction> theRegistry{
        {QStringLiteral("Str.firstNotEmptyString"), firstNotEmptyString}};
    return theRegistry;
}

} // namespace

void TTemplateFunctions::add(const QString &name, const TFunction &function)
{
    registry().insert(name, function);
}

bool TTemplateFunctions::contains(const QString &name)
{
    return registry().contains(name);
}

QString TTemplateFunctions::call(const QString &name, const QStringList &arguments)
{
    const TFunction function = registry().value(name);
    return function ? function(arguments) : QString();
}
