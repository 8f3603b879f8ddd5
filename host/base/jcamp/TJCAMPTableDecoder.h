#pragma once

#include "jcamp/JCAMPNumber.h"
#include "jcamp/TJCAMPTable.h"

#include <QString>

/// Decodes the ordinates of a table piece by piece, without copying its text.
///
/// The forms are those of R. S. McDonald and P. A. Wilks, Appl. Spectrosc. 42 (1988) 151-162,
/// doi:10.1366/0003702884428734, mixed as they like. A check that fails is noted, and the value of the check goes on as
/// the current one; signs that are no part of any form are noted and passed over.
class TJCAMPTableDecoder
{
public:
    explicit TJCAMPTableDecoder(const TJCAMPTable &table);

    void rewind();
    /// Decodes up to `count` further values, without factors; with `x` the X of pairs as well. Returns how many; less
    /// than `count` at the end of the table only. Missing ones ("?", "*") are NaN.
    int decode(double *y, double *x, int count);
    /// Values decoded since the start.
    qint64 position() const { return fPosition; }
    /// Notes when the table has not ended at the announced number of values. For the end of the reading.
    void checkEnd();

    /// X of the first and of the last line, without factor, and the number of the last one's point. 0 before a line
    /// with X was read.
    double firstLineX() const { return fFirstLineX; }
    double lastLineX() const { return fLastLineX; }
    qint64 lastLinePoint() const { return fLastLinePoint; }

    /// The first thing that was not as it should be, as "line 113: expected ..., found ...", and how many there were.
    QString problem() const;
    int problemCount() const { return fProblems; }
    /// The forms met so far, as "SQZ, DIF, DUP"; "AFFN" for plain numbers, "XY" for pairs.
    QString formsFound() const;

private:
    enum TKind { cNothing, cAbsolute, cDifference, cMissing };
    enum TForm { cAFFN = 1, cPAC = 2, cSQZ = 4, cDIF = 8, cDUP = 16, cXY = 32 };

    int decodePairs(double *y, double *x, int count);
    bool takePair(double *y, double *x);
    bool isLoneX(int have) const;
    bool takeNumber(double *value);
    bool nextOrdinate();
    bool takeToken(const char *token);
    bool takeAbsolute(const TJCAMPNumber &number, const char *token);
    bool takeDifference(const TJCAMPNumber &number, const char *token);
    void takeCount(const char *token);
    void takeLineX(const char *token);
    bool takeRepeat();
    void add(const TJCAMPNumber &difference);
    void skipComment();
    void checkX(const char *token);
    void note(const char *place, const QString &expected, const QString &found);

    TJCAMPTable fTable;
    TJCAMPNumberScanner fScanner;
    const char *fBegin;
    const char *fEnd;
    const char *fAt = nullptr;
    TJCAMPNumber fCurrent;
    TJCAMPNumber fDifference;
    qint64 fRepeats = 0; // of the item before, still to be given
    TKind fLast = cNothing;
    bool fIsLineStart = true; // of pairs: none was taken of this line yet
    bool fNeedsCheck = false; // the next ordinate repeats the one before
    bool fNeedsX = false;     // the line's X was not compared yet
    double fLineX = 0;
    double fFirstLineX = 0;
    double fLastLineX = 0;
    qint64 fLastLinePoint = -1;
    qint64 fPosition = 0;
    int fForms = 0;
    int fProblems = 0;
    bool fIsEndChecked = false;
    QString fFirstProblem;
};
