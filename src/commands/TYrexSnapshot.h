#pragma once

#include <QByteArray>
#include <memory>

/// The state of an item as undo keeps it. Compressing takes longer than most commands, so that a worker does it once
/// the state is handed over; in the end only the compressed form is held. What waits uncompressed is bounded over all
/// snapshots: beyond cMostWaiting the next one waits until it fits. So is the memory that compressed ones take: beyond
/// cMostKept a snapshot goes to a temporary file, and comes back from there.
class TYrexSnapshot
{
public:
    static constexpr qint64 cMostWaiting = 256 * 1024 * 1024; // bytes
    static constexpr qint64 cMostKept = 512 * 1024 * 1024;

    TYrexSnapshot() = default;
    /// A worker that is still busy is told to leave off; nothing waits for it.
    ~TYrexSnapshot();
    TYrexSnapshot(const TYrexSnapshot &) = delete;
    TYrexSnapshot &operator=(const TYrexSnapshot &) = delete;

    /// Takes the place of what was held. `state` is to be moved in: a copy held elsewhere keeps its memory.
    void take(QByteArray &&state);
    /// What was handed over, byte by byte; while it is not compressed yet, without waiting. Empty before take.
    QByteArray state() const;
    /// The size of the compressed form; waits for it. 0 before take.
    qint64 bytes() const;
    /// Whether the compressed form is in a file; waits for it.
    bool isOnDisk() const;

    /// The bytes of all snapshots that are not compressed yet.
    static qint64 waitingBytes();
    /// Another bound than cMostWaiting, for machines with little memory and for tests.
    static void setMostWaiting(qint64 bytes);
    /// The bytes of all compressed snapshots that are in memory.
    static qint64 keptBytes();
    /// Another bound than cMostKept.
    static void setMostKept(qint64 bytes);

private:
    struct TJob;
    class TWorker;

    void drop();

    std::shared_ptr<TJob> fJob; // shared with the worker
};
