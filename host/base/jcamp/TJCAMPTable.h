#pragma once

#include <QByteArray>
#include <memory>

class TJCAMPLineIndex;

/// A table of data and what its block says of it.
struct TJCAMPTable
{
    QByteArray fText;  // the whole file, shared
    qint64 fBegin = 0; // first byte behind "(X++(Y..Y))"
    qint64 fEnd = 0;
    std::shared_ptr<TJCAMPLineIndex> fLines; // null: made when a line is asked for
    int fColumns = 0;                        // numbers of a pair or (XYW..XYW) triple; 0 for (X++(Y..Y))
    bool fKeepsLoneX = false;                // a line of pairs that holds an X only has Y 0
    bool fHasDecimalComma = false;
    double fFirstX = 0; // real values, factors applied
    double fLastX = 0;
    double fXFactor = 1;
    double fYFactor = 1;
    int fAnnounced = -1;    // NPOINTS; -1 when there is none
    int fPoints = -1;       // values behind which the reading stops; -1 for none
    bool fHasRange = false; // whether fFirstX and fLastX say where a point is

    bool isPairs() const { return fColumns > 0; }
    /// Distance of two points; 0 where there is no telling.
    double step() const { return fHasRange && fPoints > 1 ? (fLastX - fFirstX) / (fPoints - 1) : 0; }
};
