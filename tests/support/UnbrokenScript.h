#pragma once

#include <QRegularExpression>
#include <QString>

/// A script with each call on one line, wherever the writer breaks long ones.
inline QString unbroken(QString script)
{
    script.replace(QRegularExpression("([\\[{])\n +"), "\\1");
    script.replace(QRegularExpression(",\n +"), ", ");
    script.replace(QRegularExpression("\n *([\\]}])"), "\\1");
    return script;
}
