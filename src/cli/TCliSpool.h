#pragma once

#include <QStringList>
#include <QTemporaryDir>

/// Input that can be read only once, which readers of formats do several times: standard input ("-"), named pipes,
/// those of shells (<(command)), devices. It is copied to a file without a name, which goes with the program.
class TCliSpool
{
public:
    static constexpr char cName[] = "standard input"; // of the data in results and titles
    static constexpr qint64 cUsualLimit = Q_INT64_C(4) << 30;

    TCliSpool() = default;
    ~TCliSpool();
    TCliSpool(const TCliSpool &) = delete;
    TCliSpool &operator=(const TCliSpool &) = delete;

    /// Whether a file, as it was named, is of that kind. Files, folders and what is not there are none.
    static bool isStream(const QString &file);
    /// What a file is called in results: its name, or that of standard input.
    static QString shownName(const QString &file) { return isStream(file) ? QString(cName) : file; }
    /// The first of files that names the same stream as one before; empty without one.
    static QString readTwice(const QStringList &files);
    /// Reads a size such as 100M, 4G or a number of bytes; false for what is none.
    static bool parseLimit(const QString &text, qint64 &bytes);

    /// Copies a stream to its end. False, with an error, when it cannot be read or kept, or is longer than `limit`
    /// bytes.
    bool take(const QString &file, qint64 limit, QString &error);
    /// Where the copy can be read under the name of standard input.
    QString path() const;

private:
    bool copy(int from, qint64 limit, QString &error) const;

    int fFile = -1;
    QTemporaryDir fFolder; // of a link to the copy, since readers want a path
};
