#include "TTerminalConsole.h"

#include "utils/StringUtils.h"

#include <cstdio>
#include <poll.h>
#include <unistd.h>

namespace {

constexpr int cBarWidth = 30;

} // namespace

TTerminalConsole::TTerminalConsole()
    : fIsTerminal(isatty(fileno(stderr)) == 1)
{
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ); // whoever reads a pipe sees each line when it is written
}

TTerminalConsole::~TTerminalConsole()
{
    clearBar();
}

void TTerminalConsole::clearBar()
{
    if (fHasBar)
        std::fputs("\r\033[K", stderr);
    fHasBar = false;
}

void TTerminalConsole::out(const QByteArray &bytes)
{
    clearBar();
    const auto size = size_t(bytes.size());
    fGood = std::fwrite(bytes.constData(), 1, size, stdout) == size && fGood;
}

void TTerminalConsole::err(const QString &line)
{
    clearBar();
    std::fflush(stdout); // so that lines of both streams stand in order where they meet
    std::fprintf(stderr, "%s\n", Utils::String::printable(line).toLocal8Bit().constData());
}

void TTerminalConsole::progress(const QString &what, int done, int total)
{
    if (!fIsTerminal || fQuiet || total < 2)
        return;
    clearBar();
    if (done >= total)
        return;
    const int filled = cBarWidth * done / total;
    const QString bar = QString(filled, '#') + QString(cBarWidth - filled, '-');
    std::fprintf(stderr, "[%s] %d/%d %s", bar.toLatin1().constData(), done, total,
                 Utils::String::printable(what).toLocal8Bit().constData());
    std::fflush(stderr);
    fHasBar = true;
}

bool TTerminalConsole::isStopWanted() const
{
    pollfd input{STDIN_FILENO, POLLIN, 0};
    return poll(&input, 1, 0) > 0; // a closed pipe can be read as well
}

bool TTerminalConsole::isGood()
{
    return std::fflush(stdout) == 0 && fGood;
}
