// A library for LD_PRELOAD that makes calls of a program fail, or kills it at one, as the environment asks:
//   FAULTS_FOLDER   only files below this folder count, and files without a name that were made there
//   FAULTS_AT       KIND:N: the N-th call of a kind, from 1
//     write, sync, rename    fails, all later ones as well: no space left (sync: an input/output error)
//     kill-write, kill-sync, kill-rename    ends the program before the call
//     alloc                  of 64 KiB or more, once; counted from the first file below the folder that is opened
//   FAULTS_LOG      a file that is made when the fault was met
#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr size_t cLargeAllocation = 64 * 1024;

enum TKind { cNone, cWrite, cSync, cRename, cAlloc };

// without constructors, since allocations come before all of them
TKind gKind = cNone;
bool gKills = false;
long gAt = 0;
const char *gFolder = "";
std::atomic<long> gCount{0};
std::atomic<bool> gIsArmed{false}; // for allocations

__attribute__((constructor)) void readEnvironment()
{
    const char *at = getenv("FAULTS_AT");
    const char *folder = getenv("FAULTS_FOLDER");
    if (!at || !folder || !strchr(at, ':'))
        return;
    gFolder = folder;
    gAt = atol(strchr(at, ':') + 1);
    gKills = strncmp(at, "kill-", 5) == 0;
    const char *kind = gKills ? at + 5 : at;
    gKind = strncmp(kind, "write", 5) == 0    ? cWrite
            : strncmp(kind, "sync", 4) == 0   ? cSync
            : strncmp(kind, "rename", 6) == 0 ? cRename
                                              : cAlloc;
}

// Without the library's own functions, which are the ones that are replaced here.
void leaveMark()
{
    const char *log = getenv("FAULTS_LOG");
    const int mark = log ? (int)syscall(SYS_openat, AT_FDCWD, log, O_WRONLY | O_CREAT, 0600) : -1;
    if (mark >= 0)
        syscall(SYS_close, mark);
}

bool isBelow(const char *path)
{
    const size_t length = strlen(gFolder);
    return length > 0 && strncmp(path, gFolder, length) == 0 && path[length] == '/';
}

bool isFileBelow(int file)
{
    char name[32];
    char path[PATH_MAX];
    snprintf(name, sizeof name, "/proc/self/fd/%d", file);
    const ssize_t length = readlink(name, path, sizeof path - 1);
    if (length <= 0)
        return false;
    path[length] = '\0';
    return isBelow(path);
}

bool isPathBelow(const char *path)
{
    char whole[PATH_MAX];
    if (path[0] == '/')
        return isBelow(path);
    if (!getcwd(whole, sizeof whole - 1))
        return false;
    strcat(whole, "/");
    return isBelow(whole);
}

// Whether the call is to fail.
bool meets(TKind kind)
{
    const long count = ++gCount;
    if (count < gAt || (kind == cAlloc && count > gAt))
        return false;
    leaveMark();
    if (gKills)
        syscall(SYS_kill, getpid(), SIGKILL);
    return true;
}

bool failsRename(const char *to)
{
    if (gKind != cRename || !isPathBelow(to) || !meets(cRename))
        return false;
    errno = ENOSPC;
    return true;
}

void arm(const char *path)
{
    if (gKind == cAlloc && isPathBelow(path))
        gIsArmed = true;
}

bool failsAllocation(size_t size)
{
    if (size < cLargeAllocation || gKind != cAlloc || !gIsArmed || !meets(cAlloc))
        return false;
    errno = ENOMEM;
    return true;
}

} // namespace

extern "C" {

void *__libc_malloc(size_t size);
void *__libc_calloc(size_t count, size_t size);
void *__libc_realloc(void *old, size_t size);

ssize_t write(int file, const void *bytes, size_t size)
{
    if (gKind == cWrite && isFileBelow(file) && meets(cWrite)) {
        errno = ENOSPC;
        return -1;
    }
    return syscall(SYS_write, file, bytes, size);
}

int fsync(int file)
{
    if (gKind == cSync && isFileBelow(file) && meets(cSync)) {
        errno = EIO;
        return -1;
    }
    return (int)syscall(SYS_fsync, file);
}

int rename(const char *from, const char *to)
{
    return failsRename(to) ? -1 : (int)syscall(SYS_renameat, AT_FDCWD, from, AT_FDCWD, to);
}

int renameat2(int fromFolder, const char *from, int toFolder, const char *to, unsigned flags)
{
    return failsRename(to) ? -1 : (int)syscall(SYS_renameat2, fromFolder, from, toFolder, to, flags);
}

int linkat(int fromFolder, const char *from, int toFolder, const char *to, int flags)
{
    return failsRename(to) ? -1 : (int)syscall(SYS_linkat, fromFolder, from, toFolder, to, flags);
}

int open64(const char *path, int flags, ...)
{
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = va_arg(rest, mode_t);
    va_end(rest);
    arm(path);
    return (int)syscall(SYS_openat, AT_FDCWD, path, flags, mode);
}

void *malloc(size_t size)
{
    return failsAllocation(size) ? NULL : __libc_malloc(size);
}

void *calloc(size_t count, size_t size)
{
    return failsAllocation(count * size) ? NULL : __libc_calloc(count, size);
}

void *realloc(void *old, size_t size)
{
    return failsAllocation(size) ? NULL : __libc_realloc(old, size);
}

} // extern "C"
