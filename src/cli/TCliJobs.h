#pragma once

#include <QByteArray>
#include <QMap>
#include <QStringList>
#include <functional>
#include <vector>

/// What was done for one input.
struct TCliJobResult
{
    QByteArray fOutput;
    QStringList fErrors; // lines
    bool fHasFailed = false;
    bool fIsWhole = false; // false: the process that worked on it ended before it was done
};

/// Works on numbered inputs in processes that are copies of this one, some at once: each takes the next input when it
/// is done with one. What they did is handed over in the order of the inputs. A process that breaks down costs the
/// input it worked on and is replaced.
class TCliJobs
{
public:
    /// Called in one of the processes.
    using TWorker = std::function<TCliJobResult(int index)>;
    /// Called in this one.
    using TTaker = std::function<void(int index, const TCliJobResult &result)>;

    /// No threads may run by then, since they are not copied.
    explicit TCliJobs(int atOnce)
        : fAtOnce(atOnce)
    {
    }

    /// Asked whenever an input is done: when it says yes, no further ones are begun and the rest are never handed over.
    void setStopCheck(const std::function<bool()> &isStopWanted) { fIsStopWanted = isStopWanted; }
    /// Returns when all are done and were handed over.
    void run(int count, const TWorker &work, const TTaker &take);

private:
    struct TProcess
    {
        int fSocket = -1; // carries numbers of inputs there and results back
        int fId = 0;
        int fInput = -1; // that it works on
        QByteArray fReceived;
    };

    bool start(const TWorker &work);
    [[noreturn]] static void serve(int socket, const TWorker &work);
    void giveNext(TProcess &process);
    void receive(TProcess &process, const TTaker &take);
    void end(TProcess &process);
    void finish(int index, const TCliJobResult &result, const TTaker &take);

    int fAtOnce;
    std::function<bool()> fIsStopWanted;
    std::vector<TProcess> fProcesses;
    int fCount = 0;
    int fNextToBegin = 0;
    int fNextToHandOver = 0;
    QMap<int, TCliJobResult> fWaiting; // done before their turn
};
