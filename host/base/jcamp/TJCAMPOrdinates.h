#pragma once

#include "jcamp/TJCAMPExportData.h"
#include "jcamp/TJCAMPWriter.h"

/// The ordinates of a spectrum as integers, and their lines.
class TJCAMPOrdinates
{
public:
    static constexpr int cLineWidth = 80;

    explicit TJCAMPOrdinates(const TJCAMPExportData &data);

    /// What an ordinate is multiplied by: the largest magnitude is 2^31 - 1, as 32-bit readers can hold it.
    double yFactor() const { return fYFactor; }
    /// What the X of the lines is multiplied by: 1, or a power of ten that brings them into range.
    double xFactor() const { return fXFactor; }
    /// Whether any ordinate is not missing, and the real values of the first, lowest and highest one.
    bool hasValues() const { return fHasValues; }
    bool hasFirst() const { return !fOrdinates.isEmpty() && !isMissing(0); }
    double first() const { return double(fOrdinates.first()) * fYFactor; }
    double lowest() const { return double(fLowest) * fYFactor; }
    double highest() const { return double(fHighest) * fYFactor; }

    /// The next line, without its end; false behind the last one.
    bool nextLine(TJCAMPWriter::TForm form, QByteArray *line);

private:
    bool isMissing(int point) const;
    void startLine(int point, QByteArray *line) const;
    QByteArray plainItem(TJCAMPWriter::TForm form, int point) const;
    bool nextDifferenceLine(QByteArray *line);
    int runLength(int point) const;

    QVector<qint64> fOrdinates;
    double fFirstX;
    double fLastX;
    double fXFactor = 1;
    int fDecimals = 0; // of the X of lines
    double fYFactor = 1;
    qint64 fLowest = 0;
    qint64 fHighest = 0;
    bool fHasValues = false;
    int fNext = 0;            // the next point to be written
    bool fNeedsCheck = false; // the next line repeats the point before
};
