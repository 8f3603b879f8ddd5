#include "TCliJobs.h"

#include <QDataStream>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int cPart = 1 << 16;
constexpr int cHead = int(sizeof(qint64));

/// Sends or receives all bytes; false at the end of the other side.
template <class TBytes, class TCall>
bool passAll(TBytes bytes, qint64 size, const TCall &call)
{
    while (size > 0) {
        const ssize_t passed = call(bytes, size_t(size));
        if (passed < 0 && errno == EINTR)
            continue;
        if (passed <= 0)
            return false;
        bytes += passed;
        size -= passed;
    }
    return true;
}

bool sendAll(int socket, const void *bytes, qint64 size)
{
    return passAll(static_cast<const char *>(bytes), size, [socket](const char *part, size_t count) {
        return send(socket, part, count, MSG_NOSIGNAL); // one that ended is no reason to end
    });
}

bool receiveAll(int socket, void *bytes, qint64 size)
{
    return passAll(static_cast<char *>(bytes), size,
                   [socket](char *part, size_t count) { return recv(socket, part, count, 0); });
}

/// The size of what follows, and a result.
QByteArray packed(const TCliJobResult &result)
{
    QByteArray body;
    QDataStream stream(&body, QIODevice::WriteOnly);
    stream << result.fOutput << result.fErrors << result.fHasFailed;
    const qint64 size = body.size();
    return QByteArray(reinterpret_cast<const char *>(&size), cHead) + body;
}

TCliJobResult unpacked(const QByteArray &body)
{
    TCliJobResult result;
    QDataStream stream(body);
    stream >> result.fOutput >> result.fErrors >> result.fHasFailed;
    result.fIsWhole = stream.status() == QDataStream::Ok;
    return result;
}

} // namespace

/// The life of a copy: it leaves what it shares with this program as it is.
void TCliJobs::serve(int socket, const TWorker &work)
{
    int index = 0;
    while (receiveAll(socket, &index, sizeof(index))) {
        const QByteArray result = packed(work(index));
        if (!sendAll(socket, result.constData(), result.size()))
            break;
    }
    _exit(0);
}

bool TCliJobs::start(const TWorker &work)
{
    int sockets[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, sockets) != 0)
        return false;
    std::fflush(nullptr); // else a copy holds, and writes, it as well
    const pid_t id = fork();
    if (id == 0) {
        close(sockets[0]);
        for (const TProcess &other : fProcesses) // else these would not see the end of this program
            close(other.fSocket);
        serve(sockets[1], work);
    }
    close(sockets[1]);
    if (id < 0) {
        close(sockets[0]);
        return false;
    }
    TProcess process;
    process.fSocket = sockets[0];
    process.fId = id;
    fProcesses.push_back(process);
    giveNext(fProcesses.back());
    return true;
}

void TCliJobs::giveNext(TProcess &process)
{
    process.fInput = fNextToBegin < fCount ? fNextToBegin++ : -1;
    if (process.fInput < 0)
        shutdown(process.fSocket, SHUT_WR); // it ends
    else
        sendAll(process.fSocket, &process.fInput, sizeof(process.fInput)); // a failure shows when it is read from
}

void TCliJobs::finish(int index, const TCliJobResult &result, const TTaker &take)
{
    fWaiting.insert(index, result);
    while (fWaiting.contains(fNextToHandOver)) {
        take(fNextToHandOver, fWaiting.take(fNextToHandOver));
        ++fNextToHandOver;
    }
    if (fIsStopWanted && fIsStopWanted())
        fCount = fNextToBegin;
}

void TCliJobs::end(TProcess &process)
{
    close(process.fSocket);
    while (waitpid(process.fId, nullptr, 0) < 0 && errno == EINTR) {
    }
    process.fSocket = -1;
}

void TCliJobs::receive(TProcess &process, const TTaker &take)
{
    char part[cPart];
    const ssize_t got = recv(process.fSocket, part, sizeof(part), 0);
    if (got < 0 && errno == EINTR)
        return;
    if (got <= 0) {
        end(process);
        if (process.fInput >= 0)
            finish(process.fInput, TCliJobResult(), take);
        return;
    }
    process.fReceived.append(part, int(got));
    qint64 size = 0;
    if (process.fReceived.size() < cHead)
        return;
    std::memcpy(&size, process.fReceived.constData(), cHead);
    if (process.fReceived.size() < cHead + size)
        return;
    const TCliJobResult result = unpacked(process.fReceived.mid(cHead));
    process.fReceived.clear();
    finish(process.fInput, result, take);
    giveNext(process);
}

void TCliJobs::run(int count, const TWorker &work, const TTaker &take)
{
    fCount = count;
    fNextToBegin = 0;
    fNextToHandOver = 0;
    bool canStart = true;
    for (;;) {
        while (canStart && int(fProcesses.size()) < fAtOnce && fNextToBegin < fCount)
            canStart = start(work);
        if (fProcesses.empty() && fNextToBegin < fCount) { // there is no room for a copy: here, one after another
            const int index = fNextToBegin++;
            finish(index, work(index), take);
            continue;
        }
        if (fProcesses.empty())
            return;
        std::vector<pollfd> sockets;
        for (const TProcess &process : fProcesses)
            sockets.push_back({process.fSocket, POLLIN, 0});
        if (poll(sockets.data(), nfds_t(sockets.size()), -1) < 0)
            continue;
        for (size_t i = 0; i < sockets.size(); ++i) {
            if (sockets[i].revents != 0)
                receive(fProcesses[i], take);
        }
        const auto hasEnded = [](const TProcess &process) { return process.fSocket < 0; };
        fProcesses.erase(std::remove_if(fProcesses.begin(), fProcesses.end(), hasEnded), fProcesses.end());
    }
}
