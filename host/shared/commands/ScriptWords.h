#pragma once

#include <QColor>
#include <QPair>
#include <QString>
#include <QVector>

/// The words by which scripts tell values that are numbers to the program.
class TScriptWords
{
public:
    explicit TScriptWords(const QVector<QPair<QString, int>> &words)
        : fWords(words)
    {
    }

    /// The first word for a value that has none.
    QString word(int value) const;
    /// False for a word that is none of these.
    bool value(const QString &word, int &value) const;
    /// All of them, for messages.
    QString list() const;

private:
    QVector<QPair<QString, int>> fWords;
};

namespace ScriptWords {

/// TStackColorMode.
const TScriptWords &colorModes();
/// Qt::PenStyle of curves.
const TScriptWords &lineStyles();
/// TDARegion::TKind.
const TScriptWords &regionKinds();
/// A colour as scripts tell it: 8 bits each of red, green, blue and opacity. What commands set is such a colour, so
/// that a script that does the same leaves the same bytes.
QColor plainColor(const QColor &color);

} // namespace ScriptWords
