#include "TYrexSnapshot.h"

#include <QMutex>
#include <QMutexLocker>
#include <QRunnable>
#include <QTemporaryFile>
#include <QThread>
#include <QThreadPool>
#include <QVector>
#include <QWaitCondition>
#include <algorithm>
#include <atomic>
#include <new>
#include <numeric>

namespace {

constexpr int cPart = 256 * 1024; // bytes; between two parts a worker sees that it is not wanted any more

/// The bytes that wait for a worker, over all snapshots.
class TWaitingBytes
{
public:
    /// Waits until the bytes fit; a state larger than the bound goes alone.
    void add(qint64 bytes)
    {
        QMutexLocker lock(&fMutex);
        while (fBytes > 0 && fBytes + bytes > fMost)
            fLess.wait(&fMutex);
        fBytes += bytes;
    }
    void remove(qint64 bytes)
    {
        QMutexLocker lock(&fMutex);
        fBytes -= bytes;
        fLess.wakeAll();
    }
    void setMost(qint64 bytes)
    {
        QMutexLocker lock(&fMutex);
        fMost = bytes;
        fLess.wakeAll();
    }
    qint64 bytes()
    {
        QMutexLocker lock(&fMutex);
        return fBytes;
    }

private:
    QMutex fMutex;
    QWaitCondition fLess;
    qint64 fBytes = 0;
    qint64 fMost = TYrexSnapshot::cMostWaiting;
};

/// The bytes of compressed snapshots in memory, and how many there may be.
std::atomic<qint64> gKept{0};
std::atomic<qint64> gMostKept{TYrexSnapshot::cMostKept};

TWaitingBytes &waiting()
{
    static TWaitingBytes bytes;
    return bytes;
}

/// Threads of their own, half the processors: the user's work goes on beside them. Its end waits for the last part.
QThreadPool &pool()
{
    struct TPool
    {
        TPool()
        {
            waiting(); // made before, so that it goes after the threads that use it
            fThreads.setMaxThreadCount(std::max(1, QThread::idealThreadCount() / 2));
        }
        QThreadPool fThreads;
    };
    static TPool own;
    return own.fThreads;
}

} // namespace

/// All of it behind the mutex.
struct TYrexSnapshot::TJob
{
    /// Nobody wants the state any more; the worker may still hold the job for a while.
    void release()
    {
        fIsDropped = true;
        if (!fFile)
            gKept -= compressedBytes();
        fSizes.clear();
        fParts.clear();
        fFile.reset();
    }
    qint64 compressedBytes() const { return std::accumulate(fSizes.begin(), fSizes.end(), qint64(0)); }
    /// Takes the compressed form over, into a file where there is no room in memory; it stays there when the file
    /// cannot be written.
    void keep(QVector<QByteArray> &&parts)
    {
        for (const QByteArray &part : qAsConst(parts))
            fSizes.append(part.size());
        fParts = std::move(parts);
        if (gKept.fetch_add(compressedBytes()) + compressedBytes() <= gMostKept)
            return;
        auto file = std::make_unique<QTemporaryFile>();
        bool isWritten = file->open();
        for (int i = 0; isWritten && i < fParts.size(); ++i)
            isWritten = file->write(fParts.at(i)) == fParts.at(i).size();
        if (!isWritten || !file->flush())
            return;
        gKept -= compressedBytes();
        fParts.clear();
        fFile = std::move(file);
    }
    /// The compressed parts, wherever they are.
    QVector<QByteArray> parts()
    {
        if (!fFile)
            return fParts;
        QVector<QByteArray> parts;
        fFile->seek(0);
        for (const int size : qAsConst(fSizes))
            parts.append(fFile->read(size));
        return parts;
    }

    QMutex fMutex;
    QWaitCondition fFinished;
    QByteArray fState; // empty once it is compressed
    QVector<QByteArray> fParts;
    QVector<int> fSizes;                   // of the parts
    std::unique_ptr<QTemporaryFile> fFile; // holds the parts where memory does not; has no name, so that it always goes
    bool fIsFinished = false;
    bool fIsDropped = false;
};

class TYrexSnapshot::TWorker : public QRunnable
{
public:
    explicit TWorker(const std::shared_ptr<TJob> &job)
        : fJob(job)
    {
    }
    void run() override
    {
        QByteArray state;
        {
            QMutexLocker lock(&fJob->fMutex);
            state = fJob->fState;
        }
        const qint64 size = state.size();
        QVector<QByteArray> parts;
        const bool isWhole = compress(state, parts);
        state.clear(); // the job holds the last reference, so that the memory goes with it
        {
            QMutexLocker lock(&fJob->fMutex);
            if (isWhole && !fJob->fIsDropped)
                fJob->keep(std::move(parts));
            if (isWhole || fJob->fIsDropped)
                fJob->fState = QByteArray();
            fJob->fIsFinished = true;
            fJob->fFinished.wakeAll();
        }
        waiting().remove(size);
    }

private:
    bool isDropped() const
    {
        QMutexLocker lock(&fJob->fMutex);
        return fJob->fIsDropped;
    }
    /// False when nobody wants it any more or memory is short; the state stays as it is then.
    bool compress(const QByteArray &state, QVector<QByteArray> &parts) const
    {
        try {
            for (int from = 0; from < state.size(); from += cPart) {
                if (isDropped())
                    return false;
                const auto *bytes = reinterpret_cast<const uchar *>(state.constData() + from);
                parts.append(qCompress(bytes, std::min(cPart, state.size() - from), -1));
            }
        } catch (const std::bad_alloc &) { // a thread that lets it through ends the program
            parts.clear();
            return false;
        }
        return true;
    }

    std::shared_ptr<TJob> fJob;
};

TYrexSnapshot::~TYrexSnapshot()
{
    drop();
}

void TYrexSnapshot::drop()
{
    if (!fJob)
        return;
    {
        QMutexLocker lock(&fJob->fMutex);
        fJob->release();
    }
    fJob.reset();
}

void TYrexSnapshot::take(QByteArray &&state)
{
    drop();
    if (state.isEmpty())
        return;
    const qint64 size = state.size();
    fJob = std::make_shared<TJob>();
    fJob->fState = std::move(state);
    pool(); // before the bytes that its end looks at
    waiting().add(size);
    pool().start(new TWorker(fJob)); // which the pool deletes
}

QByteArray TYrexSnapshot::state() const
{
    if (!fJob)
        return QByteArray();
    QVector<QByteArray> parts;
    {
        QMutexLocker lock(&fJob->fMutex);
        if (!fJob->fState.isEmpty())
            return fJob->fState;
        parts = fJob->parts();
    }
    QByteArray state;
    state.reserve(parts.size() * cPart);
    for (const QByteArray &part : qAsConst(parts))
        state += qUncompress(part);
    return state;
}

qint64 TYrexSnapshot::bytes() const
{
    if (!fJob)
        return 0;
    QMutexLocker lock(&fJob->fMutex);
    while (!fJob->fIsFinished)
        fJob->fFinished.wait(&fJob->fMutex);
    return fJob->fState.size() + fJob->compressedBytes();
}

bool TYrexSnapshot::isOnDisk() const
{
    return bytes() > 0 && fJob->fFile; // the worker is done with it
}

qint64 TYrexSnapshot::keptBytes()
{
    return gKept;
}

void TYrexSnapshot::setMostKept(qint64 bytes)
{
    gMostKept = bytes;
}

qint64 TYrexSnapshot::waitingBytes()
{
    return waiting().bytes();
}

void TYrexSnapshot::setMostWaiting(qint64 bytes)
{
    waiting().setMost(bytes);
}
