// Writes the seeds of the OMNIC and PerkinElmer readers: makeBlockFileSeeds FOLDER, the folder of the corpora.
#include "OmnicBuilder.h"
#include "SpBuilder.h"

#include <QDir>
#include <QFile>

namespace {

bool save(const QString &folder, const QString &name, const QByteArray &bytes)
{
    QDir().mkpath(folder);
    QFile file(QDir(folder).filePath(name));
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QByteArray fullDirectory()
{
    QVector<TOmnicBlock> blocks{{2, omnicDescription(2, 1, 17, 4000.0f, 400.0f)}};
    while (blocks.size() < 17)
        blocks.append({106, QByteArray(4, '\0')});
    blocks.append({3, omnicFloats({1.0f, 2.0f})});
    return omnicFile("full", 1, blocks);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2)
        return 2;
    const QString omnic = QString::fromLocal8Bit(argv[1]) + "/omnic";
    const QString sp = QString::fromLocal8Bit(argv[1]) + "/sp";
    const bool done = save(omnic, "single", omnicSingle()) && save(omnic, "group", omnicGroup({})) &&
                      save(omnic, "group-information", omnicGroup({{130, QByteArray(40, '\x7f')}})) &&
                      save(omnic, "large-directory", fullDirectory()) && save(sp, "spectrum", spSpectrum()) &&
                      save(sp, "few-values", spSpectrum(6)) &&
                      save(sp, "no-history", spFile(spDataBlocks("nm", "%T"))) &&
                      save(sp, "history-only", spFile(spHistory(spMembers(36))));
    return done ? 0 : 1;
}
