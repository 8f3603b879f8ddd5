#pragma once

#include <QList>
#include <QPair>
#include <QString>
#include <QVector>

struct TJCAMPPeak
{
    double fX = 0;
    double fY = 0;
    double fWidth = 0; // 0 for unknown; when every peak has one, the table is (XYW..XYW)
};

/// One spectrum to be written. Texts may hold anything; accents and control characters are dropped.
struct TJCAMPExportData
{
    QString fTitle;
    int fNumber = 0; // written after the title of its block, where several have the same one; 0 for none
    QString fOrigin;
    QString fOwner;
    QString fDataType;   // one of Consts::JCAMP::Values or the text to write
    QString fLongDate;   // "2026/11/21 06:19:18 +0000"; empty for none
    QString fXUnits;     // one of Consts::JCAMP::Values or the text to write
    QString fYUnits;     // likewise
    QString fResolution; // empty for none
    QString fDataSystem; // SPECTROMETER/DATA SYSTEM, empty for none
    double fFirstX = 0;
    double fLastX = 0;
    QVector<double> fY; // real values in file order; NaN and infinite ones become "?"
    QVector<TJCAMPPeak> fPeaks;
    QList<QPair<QString, QString>> fComments; // label (may be empty: "##=") and text
    QList<QPair<QString, QString>> fPrivates; // label without "$", and text

    int nPoints() const { return fY.size(); }
};
