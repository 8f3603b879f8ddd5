#include "jcamp/TJCAMPWriter.h"

TJCAMPWriter::TJCAMPWriter(QIODevice *device, TForm form)
    : fDevice(device)
    , fForm(form)
{
}
int TJCAMPWriter::blockCount(const TJCAMPExportData &data)
{
    return data.fPeaks.isEmpty() ? 1 : 2;
}
bool TJCAMPWriter::writeFile(const QList<TJCAMPExportData> &, const QString &)
{
    return fIsOk;
}
void TJCAMPWriter::beginLink(const QString &, const QString &, const QString &, int) {}
void TJCAMPWriter::writeSpectrum(const TJCAMPExportData &) {}
void TJCAMPWriter::endLink() {}
