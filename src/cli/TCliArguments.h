#pragma once

#include <QPair>
#include <QString>
#include <QStringList>
#include <QVector>

struct TCliSyntax;

/// The arguments of a command, taken apart.
class TCliArguments
{
public:
    /// Takes arguments apart by a syntax: "--name value", "--name=value", operands between them, "--" before operands
    /// that begin like options. False, with an error that names the place, for what the syntax does not know.
    /// With --help the number of operands is not looked at.
    bool parse(const TCliSyntax &syntax, const QStringList &arguments, QString &error);

    bool has(const QString &option) const;
    /// Empty for an option that is not given.
    QString value(const QString &option) const;
    /// All values of an option that may be given more than once, in order.
    QStringList values(const QString &option) const;
    const QStringList &operands() const { return fOperands; }

private:
    bool takeOption(const TCliSyntax &syntax, const QStringList &arguments, int &index, QString &error);

    QVector<QPair<QString, QString>> fOptions; // null value: a switch
    QStringList fOperands;
};
