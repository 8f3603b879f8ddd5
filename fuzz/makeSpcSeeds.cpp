// Writes the seeds of the fuzz target "spc" into the folder that is given.
#include "SpcBuilder.h"

#include <QFile>
#include <cstdio>

namespace {

bool write(const QString &path, const TBytes &file)
{
    QFile out(path);
    return out.open(QIODevice::WriteOnly) && out.write(file.bytes()) == file.size();
}

TBytes xArrayFile(quint8 exponent, const QVector<float> &x, int subfiles)
{
    TBytes file = SpcBuilder::newHeader(x.size(), double(x.first()), double(x.last()), subfiles);
    file.put(0, quint8(0x80)).put(3, exponent);
    SpcBuilder::addValues(file, x);
    for (int k = 0; k < subfiles; ++k)
        SpcBuilder::addSubfile(file, QVector<float>(x.size(), float(k)));
    return file;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: makeSpcSeeds FOLDER\n");
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]) + '/';
    using namespace SpcBuilder;
    TBytes map = newHeader(4, 4000.0, 400.0, 3);
    for (int k = 0; k < 3; ++k)
        addSubfile(map, {0.1f, 0.2f, 0.3f, float(k)}, float(k), k);
    addLog(map, "MEMO=a map\r\nSCANS = 16\r\n", 4);
    map.put(32, quint32(2004u << 20 | 5u << 16 | 6u << 11 | 7u << 6 | 8u)).putText(88, "memo");

    TBytes shorts = newHeader(4, 1.0, 4.0);
    shorts.put(0, quint8(1)).put(3, quint8(4)).put(29, quint8(128)).zeros(32);
    addValues<quint16>(shorts, {0, 0x4000, 0x8000, 0xFFFF});

    TBytes ownX = newHeader(3, 1.0, 3.0);
    ownX.put(0, quint8(0x40)).zeros(32).put(512 + 1, quint8(0x80)).put(512 + 16, qint32(3));
    addValues<float>(ownX, {1, 2, 3, 4, 5, 6});

    TBytes old = oldHeader(3.0f, 4000.0f, 400.0f, 8);
    old.put(18, qint16(0x505C)).put(20, quint32(0x13140E05)).putText(64, "old memo");
    addValues<quint32>(old, {0x00000100u, 0x00004000u, 0xFFFFFFFFu});

    const bool good = write(folder + "map", map) && write(folder + "shorts", shorts) && write(folder + "ownX", ownX) &&
                      write(folder + "old", old) && write(folder + "uneven", xArrayFile(0x80, {1, 2, 4, 5}, 2)) &&
                      write(folder + "descending", xArrayFile(0xFF, {9, 7, 6, 4, 2}, 1));
    return good ? 0 : 1;
}
