#include "jcamp/TJCAMPTableDecoder.h"

#include "jcamp/TJCAMPLineIndex.h"

#include <QStringList>
#include <cmath>
#include <limits>

namespace {

constexpr double cMissingValue = std::numeric_limits<double>::quiet_NaN();
constexpr double cCheckTolerance = 1e-9;   // relative; sums of fractional differences are not exact
constexpr double cXTolerance = 3.0;        // steps; X at line starts is rounded in good files
constexpr qint64 cMaxRepeats = 2000000000; // far above any count of points
constexpr int cShown = 24;                 // characters of what was found

enum TClass : quint8 { cOther, cBlank, cLineEnd, cNumber, cSqueezed, cDifferent, cRepeated, cAbsent };

/// What a character begins, and the digit with its sign that a letter stands for.
struct TCharacters
{
    TClass fClass[256] = {};
    qint8 fDigit[256] = {};
    bool fIsNegative[256] = {};

    TCharacters()
    {
        for (const char c : {' ', '\t', ',', ';', '\0', '\v', '\f'})
            fClass[quint8(c)] = cBlank;
        fClass[quint8('\n')] = fClass[quint8('\r')] = cLineEnd;
        for (const char c : {'+', '-', '.', '0', '1', '2', '3', '4', '5', '6', '7', '8', '9'})
            fClass[quint8(c)] = cNumber;
        fClass[quint8('?')] = fClass[quint8('*')] = cAbsent;
        setRun("@ABCDEFGHI", cSqueezed, 0, false);
        setRun("abcdefghi", cSqueezed, 1, true);
        setRun("%JKLMNOPQR", cDifferent, 0, false);
        setRun("jklmnopqr", cDifferent, 1, true);
        setRun("STUVWXYZs", cRepeated, 1, false);
    }

    void setRun(const char *letters, TClass kind, int digit, bool isNegative)
    {
        for (; *letters; ++letters, ++digit) {
            fClass[quint8(*letters)] = kind;
            fDigit[quint8(*letters)] = qint8(digit);
            fIsNegative[quint8(*letters)] = isNegative;
        }
    }
};

const TCharacters cCharacters;

bool isPseudoDigit(char c)
{
    const TClass kind = cCharacters.fClass[quint8(c)];
    return kind == cSqueezed || kind == cDifferent || kind == cRepeated;
}

/// Whether "1E5" is a power of ten: E is a squeezed 5 as soon as a letter of the compressed forms stands in the table,
/// an E that follows no digit included. Ends at the first one, so only plain tables are looked through.
bool hasBareExponents(const char *p, const char *end)
{
    for (const char *begin = p; p < end; ++p) {
        if (*p == '$' && p + 1 < end && p[1] == '$') {
            while (p < end && *p != '\n' && *p != '\r')
                ++p;
        } else if (isPseudoDigit(*p)) {
            const bool followsDigit = p > begin && (TJCAMPNumberScanner::isDigit(p - 1, end) || p[-1] == '.');
            if ((*p != 'E' && *p != 'e') || !followsDigit)
                return false;
        }
    }
    return true;
}

/// A unit in the last written digit of the number that ends at `end`.
double lastDigitUnit(const char *begin, const char *end)
{
    const char *point = begin;
    while (point < end && *point != '.' && *point != ',')
        ++point;
    return point < end ? std::pow(10.0, -double(end - point - 1)) : 1.0;
}

QString shown(double value)
{
    return QString::number(value, 'g', 12);
}

} // namespace

TJCAMPTableDecoder::TJCAMPTableDecoder(const TJCAMPTable &table)
    : fTable(table)
    , fBegin(fTable.fText.constData() + table.fBegin)
    , fEnd(fTable.fText.constData() + table.fEnd)
{
    fScanner.fHasDecimalComma = table.fHasDecimalComma;
    fScanner.fHasBareExponents = table.isPairs() || hasBareExponents(fBegin, fEnd);
    rewind();
}

void TJCAMPTableDecoder::rewind()
{
    fAt = fBegin;
    fCurrent = fDifference = TJCAMPNumber();
    fRepeats = 0;
    fLast = cNothing;
    fIsLineStart = true;
    fNeedsCheck = fNeedsX = false;
    fLineX = fFirstLineX = fLastLineX = 0;
    fLastLinePoint = -1;
    fPosition = 0;
    fForms = fProblems = 0;
    fIsEndChecked = false;
    fFirstProblem.clear();
}

int TJCAMPTableDecoder::decode(double *y, double *x, int count)
{
    if (fTable.isPairs())
        return decodePairs(y, x, count);
    int done = 0;
    while (done < count && nextOrdinate()) {
        y[done++] = fLast == cMissing ? cMissingValue : fCurrent.fValue;
        ++fPosition;
    }
    return done;
}

void TJCAMPTableDecoder::checkEnd()
{
    if (fIsEndChecked)
        return;
    fIsEndChecked = true;
    const qint64 announced = fTable.fAnnounced;
    double y = 0;
    double x = 0;
    if (announced < 0 || fPosition > announced)
        return;
    const qint64 before = fPosition;
    const bool hasMore = decode(&y, &x, 1) > 0;
    fPosition = before;
    if (hasMore && before == announced)
        note(fAt, QString("the end of the table behind %1 values").arg(announced), "more of them");
    else if (!hasMore && before < announced)
        note(fEnd, QString("%1 values").arg(announced), QString::number(before));
}

QString TJCAMPTableDecoder::problem() const
{
    return fProblems > 1 ? QString("%1 (and %2 more)").arg(fFirstProblem).arg(fProblems - 1) : fFirstProblem;
}

QString TJCAMPTableDecoder::formsFound() const
{
    static const char *const cNames[] = {"AFFN", "PAC", "SQZ", "DIF", "DUP", "XY"};
    QStringList names;
    for (int i = 0; i < 6; ++i) {
        if (fForms & (1 << i))
            names.append(cNames[i]);
    }
    return names.join(", ");
}

/// Goes on to the next point; its value is in fCurrent, or missing by fLast. False at the end of the table.
bool TJCAMPTableDecoder::nextOrdinate()
{
    if (fRepeats > 0)
        return takeRepeat();
    while (fAt < fEnd) {
        const char *token = fAt;
        const TClass kind = cCharacters.fClass[quint8(*token)];
        if (kind == cBlank) {
            ++fAt;
        } else if (kind == cLineEnd) {
            ++fAt;
            fIsLineStart = true;
        } else if (*token == '$' && token + 1 < fEnd && token[1] == '$') {
            skipComment();
        } else if (fIsLineStart) {
            fIsLineStart = false;
            fNeedsCheck = fLast == cDifference;
            fNeedsX = false;
            if (fScanner.isNumber(token, fEnd))
                takeLineX(token);
        } else if (takeToken(token)) {
            return true;
        } else if (fRepeats > 0) {
            return takeRepeat();
        }
    }
    return false;
}

/// One item behind a line's X. True when it is a point; counts leave fRepeats, checks and strange signs nothing.
bool TJCAMPTableDecoder::takeToken(const char *token)
{
    const quint8 c = quint8(*token);
    TJCAMPNumber number;
    switch (cCharacters.fClass[c]) {
    case cNumber:
        if (!fScanner.isNumber(token, fEnd))
            break;
        fAt = fScanner.scan(token, fEnd, &number);
        fForms |= (c == '+' || c == '-') && cCharacters.fClass[quint8(token[-1])] != cBlank ? cPAC : cAFFN;
        return takeAbsolute(number, token);
    case cSqueezed:
        fAt = fScanner.scanDigits(token + 1, fEnd, cCharacters.fDigit[c], cCharacters.fIsNegative[c], &number);
        fForms |= cSQZ;
        return takeAbsolute(number, token);
    case cDifferent:
        fAt = fScanner.scanDigits(token + 1, fEnd, cCharacters.fDigit[c], cCharacters.fIsNegative[c], &number);
        fForms |= cDIF;
        return takeDifference(number, token);
    case cRepeated:
        takeCount(token);
        return false;
    case cAbsent:
        fAt = token + 1;
        fLast = cMissing;
        fNeedsCheck = false;
        if (fNeedsX)
            checkX(token);
        return true;
    default:
        break;
    }
    fAt = token + 1;
    note(token, "an ordinate", QString("\"%1\"").arg(QLatin1Char(*token)));
    return false;
}

bool TJCAMPTableDecoder::takeAbsolute(const TJCAMPNumber &number, const char *token)
{
    const bool isCheck = fNeedsCheck;
    const bool isEqual = std::abs(number.fValue - fCurrent.fValue) <=
                         cCheckTolerance * qMax(std::abs(number.fValue), std::abs(fCurrent.fValue));
    if (isCheck && !isEqual)
        note(token, QString("the check value %1").arg(shown(fCurrent.fValue)), shown(number.fValue));
    if (fNeedsX)
        checkX(token);
    fCurrent = number;
    fLast = std::isnan(number.fValue) ? cMissing : cAbsolute;
    fNeedsCheck = false;
    return !isCheck;
}

bool TJCAMPTableDecoder::takeDifference(const TJCAMPNumber &number, const char *token)
{
    if (fLast == cMissing)
        note(token, "an ordinate of its own behind a missing one", "a difference");
    fNeedsCheck = false;
    if (fNeedsX)
        checkX(token);
    fDifference = number;
    fLast = cDifference;
    add(number);
    return true;
}

void TJCAMPTableDecoder::takeCount(const char *token)
{
    TJCAMPNumber number;
    fAt = fScanner.scanDigits(token + 1, fEnd, cCharacters.fDigit[quint8(*token)], false, &number);
    fForms |= cDUP;
    if (fLast == cNothing)
        note(token, "an ordinate", "a count of repeats");
    else if (number.fValue >= 2)
        fRepeats = qint64(qMin(number.fValue, double(cMaxRepeats))) - 1;
}

bool TJCAMPTableDecoder::takeRepeat()
{
    --fRepeats;
    if (fLast == cDifference)
        add(fDifference);
    return true;
}

void TJCAMPTableDecoder::add(const TJCAMPNumber &difference)
{
    qint64 sum = 0;
    if (fCurrent.fIsWhole && difference.fIsWhole && !__builtin_add_overflow(fCurrent.fWhole, difference.fWhole, &sum)) {
        fCurrent.fWhole = sum;
        fCurrent.fValue = double(sum);
        return;
    }
    fCurrent.fIsWhole = false;
    fCurrent.fValue += difference.fValue;
}

void TJCAMPTableDecoder::skipComment()
{
    while (fAt < fEnd && cCharacters.fClass[quint8(*fAt)] != cLineEnd)
        ++fAt;
}

void TJCAMPTableDecoder::takeLineX(const char *token)
{
    TJCAMPNumber number;
    fAt = fScanner.scan(token, fEnd, &number);
    fLineX = number.fValue;
    fNeedsX = true;
}

/// Compares the X of a line with that of its first ordinate, which is the point before when it is a check.
void TJCAMPTableDecoder::checkX(const char *token)
{
    const qint64 point = fNeedsCheck ? fPosition - 1 : fPosition;
    fNeedsX = false;
    if (fLastLinePoint < 0)
        fFirstLineX = fLineX;
    fLastLineX = fLineX;
    fLastLinePoint = point;
    const double step = fTable.step();
    const double expected = fTable.fFirstX + double(point) * step;
    const double found = fLineX * fTable.fXFactor;
    const double off = std::abs(found - expected);
    if (step == 0 || off <= cXTolerance * std::abs(step))
        return;
    const char *line = token; // back to the start of its line, which is one of the few that need it
    while (line > fBegin && cCharacters.fClass[quint8(line[-1])] != cLineEnd)
        --line;
    while (line < token && cCharacters.fClass[quint8(*line)] == cBlank)
        ++line;
    TJCAMPNumber number;
    const char *end = fScanner.isNumber(line, token) ? fScanner.scan(line, token, &number) : line;
    if (off > cXTolerance * std::abs(step) + std::abs(fTable.fXFactor) * lastDigitUnit(line, end))
        note(token, QString("X %1").arg(shown(expected)), shown(found));
}

int TJCAMPTableDecoder::decodePairs(double *y, double *x, int count)
{
    int done = 0;
    double place = 0;
    while (done < count && takePair(&y[done], &place)) {
        if (x)
            x[done] = place;
        if (fPosition == 0)
            fFirstLineX = place;
        fLastLineX = place;
        fLastLinePoint = fPosition++;
        ++done;
    }
    return done;
}

/// Whether the line at hand holds one number only and is an entry nevertheless.
bool TJCAMPTableDecoder::isLoneX(int have) const
{
    return fTable.fKeepsLoneX && fIsLineStart && have == 1;
}

/// The numbers of a line, taken in groups; a group that its line leaves unfinished is noted and dropped.
bool TJCAMPTableDecoder::takePair(double *y, double *x)
{
    double numbers[3] = {0, 0, 0};
    int have = 0;
    bool isLone = false;
    while (fAt < fEnd) {
        const char *token = fAt;
        const TClass kind = cCharacters.fClass[quint8(*token)];
        if (kind == cLineEnd) {
            ++fAt;
            isLone = isLoneX(have);
            fIsLineStart = true;
            if (have == 2 || isLone) // a width is missing, or a height
                break;
            if (have > 0)
                note(token, QString("%1 numbers").arg(fTable.fColumns), QString::number(have));
            have = 0;
        } else if (kind == cBlank) {
            ++fAt;
        } else if (*token == '$' && token + 1 < fEnd && token[1] == '$') {
            skipComment();
        } else if (*token == '<') { // a text of an assignment
            while (fAt < fEnd && *fAt != '>' && cCharacters.fClass[quint8(*fAt)] != cLineEnd)
                ++fAt;
            fAt += fAt < fEnd && *fAt == '>';
        } else if (takeNumber(&numbers[have])) {
            if (++have == fTable.fColumns) {
                fIsLineStart = false;
                break;
            }
        }
    }
    if (have < 2 && !isLone && !isLoneX(have)) {
        if (have > 0)
            note(fEnd, QString("%1 numbers").arg(fTable.fColumns), QString::number(have));
        return false;
    }
    fForms |= cXY;
    *x = numbers[0];
    *y = numbers[1];
    return true;
}

bool TJCAMPTableDecoder::takeNumber(double *value)
{
    const char *token = fAt;
    if (cCharacters.fClass[quint8(*token)] == cAbsent) {
        ++fAt;
        *value = cMissingValue;
        return true;
    }
    if (fScanner.isNumber(token, fEnd)) {
        TJCAMPNumber number;
        fAt = fScanner.scan(token, fEnd, &number);
        *value = number.fValue;
        return true;
    }
    ++fAt;
    note(token, "a number", QString("\"%1\"").arg(QLatin1Char(*token)));
    return false;
}

void TJCAMPTableDecoder::note(const char *place, const QString &expected, const QString &found)
{
    if (fProblems++ > 0)
        return;
    TJCAMPLineIndex own(fTable.fLines ? QByteArray() : fTable.fText);
    TJCAMPLineIndex &lines = fTable.fLines ? *fTable.fLines : own;
    fFirstProblem = QString("line %1: expected %2, found %3")
                        .arg(lines.lineOf(place - fTable.fText.constData()))
                        .arg(expected, found.left(cShown));
}
