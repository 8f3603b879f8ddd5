// Writes the seeds of the fuzz target "opus" into the folder that is given.
#include "OpusBuilder.h"

#include <QFile>
#include <cstdio>

namespace {

bool write(const QString &path, const OpusBuilder &builder)
{
    QFile out(path);
    const QByteArray bytes = builder.file().bytes();
    return out.open(QIODevice::WriteOnly) && out.write(bytes) == bytes.size();
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: makeOpusSeeds FOLDER\n");
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]) + '/';
    using B = OpusBuilder;
    OpusBuilder usual;
    usual.addSpectrum(0x100F, {1, 2, 3, 4}, 4000.0, 400.0, B::number("CSF", 1.0) + B::wavenumbers());
    usual.addSpectrum(0x0407, {1, 2}, 1.0, 2.0, B::wavenumbers("2012/11/09"));
    usual.add(0xA0, B::text("SNM", "soil") + B::number("CPG", 1252) + B::end());
    usual.add(0x40680000, QByteArray(100, '\0') + QByteArray("a\tb\0\0c", 6));

    OpusBuilder versions;
    versions.addSpectrum(0x4000100F, {1, 2}, 1.0, 2.0).addSpectrum(0x100F, {1, 2}, 1.0, 2.0);
    versions.addSpectrum(0x100F, {3, 4}, 1.0, 2.0, B::number("MXY", 4.0) + B::number("MNY", 3.0));

    OpusBuilder series;
    series.add(0x0010100F, B::series({{1, 2, 3}, {4, 5, 6}}, 2.0, 30.0, 10.0));
    series.add(0x0010101F, B::status(3, 30.0, 10.0, B::wavenumbers()));
    series.addSpectrum(0x040B, {7, 7}, 1.0, 2.0);

    OpusBuilder compact;
    compact.add(0x0020140F, B::floats({9, 1, 2})).add(0x0020141F, B::status(2, 1.0, 2.0));
    compact.addSpectrum(0x1C0F, {1, 2, 3}, 0.0, 2.0);

    const bool written = write(folder + "usual", usual) && write(folder + "versions", versions) &&
                         write(folder + "series", series) && write(folder + "compact", compact);
    return written ? 0 : 1;
}
