// A JCAMP-DX file of one spectrum in DIFDUP form, cut into blocks and read as the host does it.
#include "TJCAMPYrexConverter.h"
#include "TPlainRead.h"
#include "jcamp/JCAMPConsts.h"
#include "jcamp/TJCAMPBlock.h"
#include "jcamp/TJCAMPFileMarking.h"
#include "jcamp/TJCAMPWriter.h"

#include <QBuffer>
#include <cmath>

namespace {

constexpr int cPoints = 1000000;

TJCAMPExportData bigSpectrum()
{
    TJCAMPExportData data;
    data.fTitle = "big";
    data.fDataType = Consts::JCAMP::Values::INFRAREDSPECTRUM;
    data.fXUnits = Consts::JCAMP::Values::ONECM;
    data.fYUnits = Consts::JCAMP::Values::ABSORBANCE;
    data.fLastX = cPoints - 1;
    data.fY.resize(cPoints);
    for (int i = 0; i < cPoints; ++i)
        data.fY[i] = 1.5 + std::sin(i * 1e-3) + 0.3 * std::sin(i * 0.37);
    return data;
}

QByteArray bigBytes()
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    TJCAMPWriter(&buffer).writeFile({bigSpectrum()}, QString());
    return bytes;
}

QString bigFile()
{
    return benchFile(QStringLiteral("big.jdx"), bigBytes);
}

void jcampPlain(benchmark::State &state)
{
    plainRead(state, bigFile());
}

void jcampRead(benchmark::State &state)
{
    const QString path = bigFile();
    timeConverter<TJCAMPYrexConverter>(state, path, [&path](TJCAMPYrexConverter &converter) {
        const TJCAMPFileMarking marking(path);
        int code = marking.blocks().isEmpty() ? -1 : 0;
        for (TJCAMPBlock *block : marking.blocks()) {
            converter.setBlock(block, path);
            code = code == 0 ? converter.importFile(path, nullptr) : code;
        }
        converter.setBlock(nullptr, QString());
        return code;
    });
}

void jcampWrite(benchmark::State &state)
{
    const TJCAMPExportData data = bigSpectrum();
    qint64 size = 0;
    for (auto unused : state) {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        TJCAMPWriter(&buffer).writeFile({data}, QString());
        size = buffer.size();
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * size);
}

BENCHMARK(jcampPlain)->Unit(benchmark::kMillisecond);
BENCHMARK(jcampRead)->Unit(benchmark::kMillisecond);
BENCHMARK(jcampWrite)->Unit(benchmark::kMillisecond);

} // namespace
