#pragma once

#include <QString>
#include <cerrno>
#include <csignal>
#include <sys/resource.h>

/// As long as it lives, no file of this process can grow: every write to one fails as on a full disk.
class TFullDisk
{
public:
    TFullDisk()
        : fHandler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &fBefore);
        const rlimit none{0, fBefore.rlim_max};
        setrlimit(RLIMIT_FSIZE, &none);
    }
    ~TFullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &fBefore);
        std::signal(SIGXFSZ, fHandler);
    }
    Q_DISABLE_COPY(TFullDisk)

    /// What the system says of such a write.
    static QString reason() { return qt_error_string(EFBIG); }

private:
    rlimit fBefore{};
    void (*fHandler)(int);
};
