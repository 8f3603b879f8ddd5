#include "TYrexSnapshot.h"

#include <QMutex>
#include <QMutexLocker>
#include <QRunnable>
#include <QThread>
#include <QThreadPool>
#include <QVector>
#include <QWaitCondition>
#include <algorithm>
#include <new>

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
    QMutex fMutex;
    QWaitCondition fFinished;
    QByteArray fState; // empty once it is compressed
    QVector<QByteArray> fParts;
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
            if (isWhole || fJob->fIsDropped) {
                fJob->fParts = std::move(parts);
                fJob->fState = QByteArray();
            }
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
        fJob->fIsDropped = true;
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
        parts = fJob->fParts;
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
    qint64 bytes = fJob->fState.size();
    for (const QByteArray &part : qAsConst(fJob->fParts))
        bytes += part.size();
    return bytes;
}

qint64 TYrexSnapshot::waitingBytes()
{
    return waiting().bytes();
}

void TYrexSnapshot::setMostWaiting(qint64 bytes)
{
    waiting().setMost(bytes);
}
