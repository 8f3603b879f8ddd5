#include "TPeakMemory.h"

#include <QByteArray>
#include <QFile>
#include <malloc.h>

namespace {

qint64 statusBytes(const char *key)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith(key))
            return line.mid(int(qstrlen(key))).trimmed().split(' ').first().toLongLong() * 1024;
    }
    return -1;
}

} // namespace

TPeakMemory::TPeakMemory()
{
    malloc_trim(0);
    QFile reset(QStringLiteral("/proc/self/clear_refs"));
    if (reset.open(QIODevice::WriteOnly))
        reset.write("5"); // the high-water mark begins anew
    reset.close();
    fStart = statusBytes("VmRSS:");
}

qint64 TPeakMemory::now()
{
    malloc_trim(0);
    return statusBytes("VmRSS:");
}

qint64 TPeakMemory::peak() const
{
    const qint64 most = statusBytes("VmHWM:");
    return most < 0 || fStart < 0 ? -1 : most - fStart;
}
