// A JCAMP-DX file as its text layer sees it: blocks, labels, tables by all roads, a look inside; what a table gives is
// written in one of the forms and must read back. The seeds are small files in all forms and with all known oddities.
#include "jcamp/JCAMPConsts.h"
#include "jcamp/JCAMPInspection.h"
#include "jcamp/JCAMPUtils.h"
#include "jcamp/TBaseJCAMPParamsParser.h"
#include "jcamp/TJCAMPBlock.h"
#include "jcamp/TJCAMPDatasetInterpreter.h"
#include "jcamp/TJCAMPFileMarking.h"
#include "jcamp/TJCAMPParamNameIterator.h"
#include "jcamp/TJCAMPWriter.h"

#include <QBuffer>
#include <cmath>
#include <cstdlib>
#include <sys/mman.h>
#include <unistd.h>

namespace {

constexpr int cMaxPoints = 2048; // of a table that is read here

void require(bool condition)
{
    if (!condition)
        std::abort();
}

bool isSame(double a, double b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

QVector<double> checkedValues(TJCAMPDatasetInterpreter &interpreter)
{
    TJCAMPDataIterator *values = interpreter.dataIterator();
    const int count = qMin(interpreter.nPoints(), cMaxPoints);
    QVector<double> y(count);
    QVector<double> x(count);
    y.resize(values->readAll(y.data(), count, x.data()));
    int i = 0;
    for (bool isMore = values->first(); isMore && i < y.size(); isMore = values->next(), ++i)
        require(isSame(values->y() * values->yFactor(), y[i]) && isSame(values->x(), x[i]));
    require(i == y.size());
    values->problem();
    return y;
}

void checkLines(const QByteArray &file)
{
    for (const QByteArray &line : file.split('\n')) {
        require(line.size() <= 81); // with its CR
        for (const char c : line)
            require(c == '\r' || (c >= ' ' && c < 0x7F));
    }
}

void checkRoundTrip(const TJCAMPExportData &data, TJCAMPWriter::TForm form)
{
    QByteArray file;
    QBuffer buffer(&file);
    buffer.open(QIODevice::WriteOnly);
    require(TJCAMPWriter(&buffer, form).writeFile({data}, data.fTitle));
    checkLines(file);
    const TJCAMPFileMarking marking(file, QString());
    const int blocks = TJCAMPWriter::blockCount(data);
    require(marking.blocks().size() == (blocks == 1 ? 1 : blocks + 1));
    TJCAMPDatasetInterpreter again(marking.blocks().at(blocks == 1 ? 0 : 1), {Consts::JCAMP::Values::INFRAREDSPECTRUM});
    bool found = false;
    require(again.isValid() && again.nPoints() == data.nPoints());
    require(again.getDouble("FIRSTX", found) == data.fFirstX && found);
    require(again.getDouble("LASTX", found) == data.fLastX && found);
    const double factor = again.getDouble("YFACTOR", found);
    const QVector<double> y = checkedValues(again);
    require(again.dataIterator()->problem().isEmpty());
    for (int i = 0; i < y.size(); ++i) {
        require(std::isfinite(data.fY[i]) ? std::abs(y[i] - data.fY[i]) <= 0.5001 * factor : std::isnan(y[i]));
    }
}

void checkBlock(TJCAMPBlock *block, TJCAMPWriter::TForm form)
{
    TBaseJCAMPParamsParser parser;
    bool found = false;
    TJCAMPExportData data;
    data.fTitle = parser.value(block, "TITLE");
    data.fDataType = Consts::JCAMP::Values::INFRAREDSPECTRUM;
    data.fComments.append({parser.value(block, "XUNITS"), parser.value(block, "OWNER")});
    TJCAMPParamNameIterator records(block, "PEAK TABLE");
    for (bool isMore = records.first(); isMore; isMore = records.next()) {
        for (const QByteArray &line : records.lines())
            Utils::JCAMP::toDouble(Utils::JCAMP::cutComment(line), 2, ',');
    }
    for (const char *label : {"XYDATA", "XYPOINTS", "PEAK TABLE"}) {
        TJCAMPDatasetInterpreter interpreter(block, {});
        interpreter.setDataLabel(label);
        require(interpreter.dataBlockStart() >= block->startPos() && interpreter.dataBlockStart() <= block->endPos());
        const QVector<QPointF> pairs = interpreter.pairs();
        for (int i = 0; i < pairs.size() && i < cMaxPoints; ++i)
            data.fPeaks.append({pairs[i].x(), pairs[i].y(), 1});
        if (!interpreter.isValid() || !interpreter.dataIterator())
            continue;
        data.fFirstX = interpreter.getDouble("FIRSTX", found);
        data.fLastX = interpreter.getDouble("LASTX", found);
        data.fY = checkedValues(interpreter);
        if (std::isfinite(data.fFirstX) && std::isfinite(data.fLastX))
            checkRoundTrip(data, form);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    const int handle = memfd_create("fuzz", 0);
    if (handle < 0 || write(handle, bytes, size) != ssize_t(size))
        std::abort();
    const QString path = QString("/proc/self/fd/%1").arg(handle);
    const TJCAMPFileMarking marking(path);
    int shown = 0;
    for (TJCAMPBlock *block : marking.blocks()) {
        if (++shown > 8)
            break;
        checkBlock(block, TJCAMPWriter::TForm(size % 4));
    }
    require(jcampInspection(path).isEmpty() != marking.isValid());
    close(handle);
    return 0;
}
