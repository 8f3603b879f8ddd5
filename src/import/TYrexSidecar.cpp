#include "TYrexSidecar.h"

#include "log/TLogger.h"
#include "params/TParamsBundle.h"
#include "utils/StringUtils.h"

#include <QDir>
#include <QFileInfo>

namespace {

constexpr char cBegin[] = "_begin";
constexpr char cClosingLine[] = "TmpFile_end";

} // namespace

TYrexSidecar::TYrexSidecar(const QString &dataFile)
    : fDataFile(dataFile)
    , fFile(QDir::temp().filePath(QFileInfo(dataFile).baseName() + "-metadata.txt"))
{
    fFile.open();
}

void TYrexSidecar::writeSection(const QByteArray &name, QByteArray text, TCleaning cleaning)
{
    text.replace('\0', ' ');
    if (cleaning == cHistory)
        text.replace('\t', ' ').replace('\n', ' ').replace('\r', ' ');
    fFile.write(name + "_begin\n" + text + '\n' + name + "_end\n");
}

void TYrexSidecar::writeLine(const QByteArray &line)
{
    fFile.write(line + '\n');
}

void TYrexSidecar::finish()
{
    fFile.write(QByteArray(cClosingLine) + '\n');
    fFile.flush();
}

void TYrexSidecar::addTo(TParamsBundle &bundle, const QString &marker)
{
    const bool isWhole = fFile.isOpen() && fFile.flush() && fFile.error() == QFileDevice::NoError;
    if (!isWhole) // the values are whole all the same
        TLogger::printToLogger("Import",
                               QStringLiteral("%1: texts of the file are missing, since the folder of temporary files "
                                              "cannot be written: %2")
                                   .arg(fDataFile, fFile.errorString()),
                               TLogger::cError);
    bundle.addParamsBlob(marker, fFile.fileName(), &fFile, 0, -1);
}

QMap<QString, QString> TYrexSidecar::sections(const QByteArray &text)
{
    QMap<QString, QString> sections;
    const QString content = Utils::String::normalizedEOL(QString::fromLatin1(text.left(cReadLimit)));
    const QStringList lines = content.split('\n');
    for (int i = 0; i < lines.size(); ++i) {
        const QString &line = lines.at(i);
        if (line.contains(QLatin1String(cClosingLine)))
            break;
        if (line.endsWith(QLatin1String(cBegin)) && i + 1 < lines.size())
            sections.insert(line.chopped(int(qstrlen(cBegin))), lines.at(++i));
    }
    return sections;
}
