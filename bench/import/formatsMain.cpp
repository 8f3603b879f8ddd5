// Reading binary and JCAMP-DX files, beside a plain read of the same file: one source per format. The files are made in
// the folder that --dir=FOLDER names (and stay there) or in a temporary one.
#include "TPlainRead.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <algorithm>

namespace {

/// Takes the option out of the arguments, which the library would not know.
QString takeFolder(int *argc, char **argv)
{
    constexpr char cOption[] = "--dir=";
    char **end = argv + *argc;
    char **found = std::find_if(argv + 1, end, [&](char *one) { return qstrncmp(one, cOption, 6) == 0; });
    if (found == end)
        return QString();
    const QString folder = QString::fromLocal8Bit(*found + 6);
    std::rotate(found, found + 1, end);
    --*argc;
    return folder;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const QTemporaryDir temporary;
    const QString given = takeFolder(&argc, argv);
    benchFolder() = given.isEmpty() ? temporary.path() : given;
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
