#include "TCliFileList.h"

#include "TCliArguments.h"
#include "TCliSpool.h"

#include <QFile>
#include <unistd.h>

const char TCliFileList::cOption[] = "--files-from";

namespace {

constexpr qint64 cLargestList = 256 << 20; // bytes
constexpr qint64 cPart = 1 << 20;

bool readAll(const QString &list, QByteArray &bytes, QString &error)
{
    QFile file(list);
    if (!(list == "-" ? file.open(STDIN_FILENO, QIODevice::ReadOnly) : file.open(QIODevice::ReadOnly))) {
        error = file.errorString();
        return false;
    }
    for (QByteArray part = file.read(cPart); !part.isEmpty(); part = file.read(cPart)) {
        bytes += part;
        if (bytes.size() > cLargestList) {
            error = "this is too long for a list of files";
            return false;
        }
    }
    return true;
}

} // namespace

QVector<TCliOption> TCliFileList::options()
{
    return {{cOption, "LIST", "take further names of files from this file, one a line; - is standard input"},
            {"-0", "", "names in the list end in zero bytes, as find -print0 writes them"},
            {"--spool-limit", "SIZE",
             "keep at most so much of a pipe or of standard input, such as 100M or 8G (default 4G)"}};
}

bool TCliFileList::read(const TCliArguments &arguments, QStringList &files, QString &error)
{
    files = arguments.operands();
    const QString list = arguments.value(cOption);
    const bool endsInZero = arguments.has("-0");
    if (list.isEmpty() && endsInZero)
        error = QString("-0 goes with %1").arg(cOption);
    const QString twice = TCliSpool::readTwice(list.isEmpty() ? files : files + QStringList(list));
    if (!twice.isEmpty())
        error = QString("%1 is named twice and can be read only once").arg(twice == "-" ? "standard input (-)" : twice);
    if (!error.isEmpty() || list.isEmpty())
        return error.isEmpty();
    QByteArray bytes;
    if (!readAll(list, bytes, error)) {
        error = QString("%1 %2: %3").arg(cOption, list, error);
        return false;
    }
    const int before = files.size();
    for (QByteArray name : bytes.split(endsInZero ? '\0' : '\n')) {
        if (!endsInZero && name.endsWith('\r')) // a list from another system
            name.chop(1);
        if (!name.isEmpty())
            files.append(QFile::decodeName(name));
    }
    if (files.size() == before)
        error = QString("%1 %2: it names no file").arg(cOption, list);
    else if (!endsInZero && bytes.contains('\0'))
        error = QString("%1 %2: it holds zero bytes; -0 takes them as the ends of names").arg(cOption, list);
    else if (list == "-" && files.contains("-"))
        error = "standard input (-) is named twice and can be read only once";
    else if (!TCliSpool::readTwice(files).isEmpty())
        error = QString("%1 is named twice and can be read only once").arg(TCliSpool::readTwice(files));
    return error.isEmpty();
}
