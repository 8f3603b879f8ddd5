#pragma once

#include <QString>
#include <QVector>

/// How well what was typed fits a text: its letters stand in the text in this order, with others between them. Case
/// does not matter. Letters at the starts of words and runs of letters weigh more.
class TFuzzyMatch
{
public:
    /// Compares with one word; the empty pattern fits every text with score 0.
    TFuzzyMatch(const QString &pattern, const QString &text);

    bool fits() const { return fScore >= 0; }
    /// The higher the better; -1 when it does not fit.
    int score() const { return fScore; }
    /// The places of the pattern's letters in the text, ascending.
    const QVector<int> &places() const { return fPlaces; }

    /// Each word of the pattern fits the title or, for less, the path. -1 when one does not. `places` gets those in
    /// the title, ascending and without doubles.
    static int score(const QString &pattern, const QString &title, const QString &path, QVector<int> *places = nullptr);

private:
    void match(const QString &pattern, const QString &text);

    int fScore = -1;
    QVector<int> fPlaces;
};
