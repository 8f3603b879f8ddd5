#include "TCliWriter.h"

#include "TCanvasYrexSpectrum.h"
#include "TCliEnvironment.h"
#include "TCliInput.h"
#include "TCliResultJson.h"
#include "TCliTarget.h"
#include "TYrexChainJson.h"
#include "canvas/TDocument.h"
#include "exchange/ExportFile.h"
#include "plugin/IConverter.h"
#include "services/IBatchHost.h"
#include "services/IJCAMPPlugin.h"
#include "services/IPluginHost.h"
#include "services/TImportDriver.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

namespace {

QString cannotWrite(const QString &path, const QString &why)
{
    return QString("%1 cannot be written: %2").arg(path, why);
}

QByteArray exportedBytes(IConverter &converter, TCliInput &input)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("out"));
    QString error = folder.errorString();
    int code = cConverterFileNotOpened;
    if (folder.isValid())
        code = ExportFile::write(converter, input.fItems, file.fileName(), &error);
    if (code == cConverterOk && file.open(QIODevice::ReadOnly))
        return file.readAll();
    input.fail(code ? code : int(cConverterFileNotOpened), code ? error : file.errorString());
    return QByteArray();
}

/// Source, checksums, the chain that made the data, if one did, and the program.
QStringList provenanceLines(const TCliInput &input, ICanvasItem *item, bool hasFolders)
{
    const QVariantMap facts = input.provenance();
    const QString path = facts.value("Filename").toString();
    QStringList lines{"source: " + (hasFolders ? path : QFileInfo(path).fileName())};
    const QVariantMap sums = facts.value("md5sum").toMap();
    for (auto it = sums.constBegin(); it != sums.constEnd(); ++it)
        lines.append(QString("md5: %1 %2").arg(it.value().toString(), it.key()));
    const TCanvasYrexSpectrum *spectrumItem = yrexItem(item);
    const TYrexSpectrum *spectrum = spectrumItem ? spectrumItem->currentSpectrum() : nullptr;
    if (spectrum && spectrum->procParams().isAnyApplied())
        lines.append("chain: " + QString::fromUtf8(spectrumItem->chainText()).simplified());
    lines.append("written by: zarnu " + facts.value("version").toString());
    return lines;
}

} // namespace

/// Writes the items with the exporter of that format, each into a file of its own; `prepare` is told the first item of
/// a file.
void TCliWriter::writeThrough(const QString &format, TCliInput &input, int index, QByteArray &out,
                              const std::function<void(int)> &prepare) const
{
    IConverter *converter = fEnvironment.fBatch.importDriver().converterByName(format);
    if (!converter || input.fItems.isEmpty()) {
        const int code = converter ? cConverterNothingToExport : cConverterNotSupported;
        return input.fail(code, TImportDriver::reason(code));
    }
    if (fTarget.isStandardOutput()) {
        prepare(0);
        out += exportedBytes(*converter, input);
        return tellRemark(*converter, QStringLiteral("standard output"));
    }
    const QStringList paths = fTarget.itemPaths(index, input.fItems.size());
    for (const QString &path : paths) { // all names before the first byte
        const QString obstacle = fTarget.obstacle(path, index);
        if (!obstacle.isEmpty())
            return input.fail(cConverterFileNotOpened, obstacle);
    }
    for (int i = 0; i < paths.size(); ++i) {
        prepare(i);
        QString error;
        const int code = ExportFile::write(*converter, {input.fItems.at(i)}, paths.at(i), &error);
        if (code != cConverterOk)
            return input.fail(code, error);
        tellRemark(*converter, paths.at(i));
    }
}

void TCliWriter::tellRemark(const IConverter &converter, const QString &path) const
{
    const QString remark = converter.exportRemark();
    if (!remark.isEmpty())
        fEnvironment.warn(path + ": " + remark);
}

void TCliWriter::writeCsv(TCliInput &input, int index, QByteArray &out) const
{
    writeThrough("csv", input, index, out, [](int) {});
}

/// With what is known of the data's origin as comment records.
void TCliWriter::writeJcamp(TCliInput &input, int index, QByteArray &out) const
{
    IJCAMPPlugin *jcamp = Utils::Framework::jcampPluginI();
    if (!jcamp)
        return input.fail(cConverterNotSupported, TImportDriver::reason(cConverterNotSupported));
    writeThrough("jcamp", input, index, out, [&](int item) {
        jcamp->setExportComments(provenanceLines(input, input.fItems.at(item), fTarget.hasSourceFolders()));
    });
    jcamp->setExportComments({});
}

void TCliWriter::writeDocument(TCliInput &input, int index) const
{
    TDocument &document = *fEnvironment.fHost.document();
    const QString path = fTarget.path(index);
    QString error;
    bool done = false;
    if (input.fIsDocument && !document.isModified()) {
        // what nothing changed is written as it came, also what a newer version put into it
        QFile source(input.path());
        if (source.open(QIODevice::ReadOnly))
            done = ExportFile::write(path, source.readAll(), &error);
        else
            error = source.errorString();
    } else {
        done = document.saveTo(path, &error);
        error = cannotWrite(path, error);
    }
    if (!done)
        input.fail(cConverterFileNotOpened, error);
}

void TCliWriter::writeJson(TCliInput &input, int index, QByteArray &out) const
{
    TCliResultJson json(*fEnvironment.fHost.document(), TCliResultJson::cAll);
    json.setChain(fChain);
    const QByteArray text = TCliResultJson::array({json.object(input)});
    if (fTarget.isStandardOutput()) {
        out += text;
        return;
    }
    QString error;
    if (!ExportFile::write(fTarget.path(index), text, &error))
        input.fail(cConverterFileNotOpened, error);
}

void TCliWriter::write(TCliInput &input, int index, QByteArray &out) const
{
    if (fTarget.form() == "csv")
        writeCsv(input, index, out);
    else if (fTarget.form() == "jdx" || fTarget.form() == "dx")
        writeJcamp(input, index, out);
    else if (fTarget.form() == "klm")
        writeDocument(input, index);
    else
        writeJson(input, index, out);
}
