#pragma once

#include <QString>
#include <QStringList>
#include <functional>

/// The functions that formulas of parameter templates may call, one registry for the process.
///
/// The host's own is "Str.firstNotEmptyString", which answers its first argument that is not empty, or a null text.
class TTemplateFunctions
{
public:
    using TFunction = std::function<QString(const QStringList &)>;

    /// Registers a function, replacing one of that name. It gets all arguments, evaluated from left to right; an
    /// argument that gave nothing is a null text.
    static void add(const QString &name, const TFunction &function);
    static bool contains(const QString &name);
    /// A null text for an unknown name.
    static QString call(const QString &name, const QStringList &arguments);
};
