#include "TFuzzyMatch.h"

#include <algorithm>

namespace {

constexpr int cLetter = 1;
constexpr int cRun = 5;        // a letter right behind the one before
constexpr int cWordStart = 8;  // "fv" means "Full View"
constexpr int cTextStart = 3;  // beside that of a word
constexpr int cWholeWord = 20; // the pattern as it stands, from the start of a word
constexpr int cTitle = 30;     // each word found in the title and not only in the path
constexpr int cLongest = 120;  // letters of a text that are looked at
constexpr int cNone = -1;

bool isWordStart(const QString &text, int place)
{
    return place == 0 || !text.at(place - 1).isLetterOrNumber();
}

int worthOf(const QString &text, int place)
{
    return cLetter + (isWordStart(text, place) ? cWordStart : 0) + (place == 0 ? cTextStart : 0);
}

} // namespace

TFuzzyMatch::TFuzzyMatch(const QString &pattern, const QString &text)
{
    if (pattern.isEmpty())
        fScore = 0;
    else
        match(pattern.toCaseFolded(), text.left(cLongest).toCaseFolded());
}

/// Best sum over all ways to lay the pattern's letters on the text: a table of a row for each letter, whose field is
/// the best sum with that letter at that place of the text.
void TFuzzyMatch::match(const QString &pattern, const QString &text)
{
    const int rows = pattern.size();
    const int columns = text.size();
    if (rows > columns)
        return;
    QVector<QVector<int>> best(rows, QVector<int>(columns, cNone));
    QVector<QVector<int>> from(rows, QVector<int>(columns, cNone));
    for (int row = 0; row < rows; ++row) {
        int before = cNone; // the place of the best of the row above, left of the column
        for (int column = 0; column < columns; ++column) {
            if (row > 0 && column > 0) {
                const QVector<int> &above = best.at(row - 1);
                if (above.at(column - 1) > (before == cNone ? cNone : above.at(before)))
                    before = column - 1;
            }
            if (text.at(column) != pattern.at(row) || (row > 0 && before == cNone))
                continue;
            const int worth = worthOf(text, column);
            best[row][column] = row == 0 ? worth : best.at(row - 1).at(before) + worth;
            from[row][column] = before;
            const int run = row > 0 ? best.at(row - 1).at(column - 1) : cNone;
            if (run != cNone && run + worth + cRun >= best.at(row).at(column)) {
                best[row][column] = run + worth + cRun;
                from[row][column] = column - 1;
            }
        }
    }
    const QVector<int> &last = best.constLast();
    int place = int(std::max_element(last.begin(), last.end()) - last.begin());
    if (last.at(place) == cNone)
        return;
    fScore = last.at(place);
    for (int row = rows - 1; row >= 0; --row) {
        fPlaces.prepend(place);
        place = from.at(row).at(place);
    }
    if (fPlaces.last() - fPlaces.first() == rows - 1 && isWordStart(text, fPlaces.first()))
        fScore += cWholeWord;
}

int TFuzzyMatch::score(const QString &pattern, const QString &title, const QString &path, QVector<int> *places)
{
    int sum = 0;
    QVector<int> found;
    for (const QString &word : pattern.simplified().split(' ', Qt::SkipEmptyParts)) {
        const TFuzzyMatch inTitle(word, title);
        const TFuzzyMatch inPath(word, path);
        if (!inTitle.fits() && !inPath.fits())
            return -1;
        const bool isTitle = inTitle.fits() && inTitle.score() + cTitle >= inPath.score();
        sum += isTitle ? inTitle.score() + cTitle : inPath.score();
        if (isTitle)
            found += inTitle.places();
    }
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    if (places)
        *places = found;
    return sum;
}
