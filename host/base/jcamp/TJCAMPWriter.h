#pragma once

#include "jcamp/TJCAMPExportData.h"

class QIODevice;

/// Writes JCAMP-DX 5.01: ASCII, lines of at most 80 bytes that end with CR LF. Accents are dropped; texts in other
/// scripts stay as they are, in UTF-8, with a remark at the version of their block.
class TJCAMPWriter
{
public:
    enum TForm { cAFFN, cPAC, cSQZ, cDIFDUP };

    /// The device, open for writing, is not owned.
    explicit TJCAMPWriter(QIODevice *device, TForm form = cDIFDUP);

    /// The blocks that writeSpectrum makes of it: one, and one more for its peaks.
    static int blockCount(const TJCAMPExportData &data);

    /// Writes a whole file: the block of a single spectrum alone, else a LINK block of that title with all blocks in
    /// it. False when the device refused bytes.
    bool writeFile(const QList<TJCAMPExportData> &spectra, const QString &title);

    /// The parts of it, for those who make the spectra one by one.
    void beginLink(const QString &title, const QString &origin, const QString &owner, int blocks);
    void writeSpectrum(const TJCAMPExportData &data);
    void endLink();
    bool isOk() const { return fIsOk; }

private:
    void put(const QByteArray &text);
    void putRecord(const QByteArray &label, const QString &text);
    void putVersion(bool isUtf8);
    void putNumber(const char *label, double value);
    void putHead(const TJCAMPExportData &data, const char *dataClass);
    void putSpectrum(const TJCAMPExportData &data);
    void putPeaks(const TJCAMPExportData &data);

    QIODevice *fDevice;
    TForm fForm;
    bool fIsOk = true;
};
