#pragma once

#include <QSet>
#include <QString>
#include <QStringList>

class TCliArguments;

/// Where the results of the inputs go: one file, a folder with one file for each input, or standard output. Everything
/// that can be wrong with it is found before any work.
class TCliTarget
{
public:
    enum TKind { cData, cPicture };

    /// The names of the forms of a kind that are written, for help texts.
    static QString formNames(TKind kind);

    /// The files that are read: none of them is written over, by whatever name. To be called before the plan.
    void setSources(const QStringList &files);
    /// Plans for the option (-o, --plot) and the option that names the form of files in a folder (--to, --plot-to).
    /// False with an error for what cannot be done; true, with nothing planned, when the option is not given.
    bool plan(TKind kind, const TCliArguments &arguments, const QStringList &inputs, QString &error);

    bool isPlanned() const { return !fForm.isEmpty(); }
    bool isStandardOutput() const { return fStandardOutput; }
    /// The ending of the files in lower case, without the dot.
    const QString &form() const { return fForm; }
    /// The file of an input.
    QString path(int input) const { return fPaths.value(input); }
    /// The files of an input with several items, of which each gets one: NAME-1, NAME-2 and so on.
    QStringList itemPaths(int input, int itemCount) const;
    /// Whether files that name their sources name them with their folders.
    bool hasSourceFolders() const { return fHasSourceFolders; }
    /// Makes the folder of the files; false, with an error, when it cannot be made.
    bool makeFolder(QString &error) const;
    /// Why an existing file cannot be written; empty when it can.
    static QString obstacle(const QString &path, bool force);
    /// The same, with the sources of this target and the files that were planned for inputs other than this one:
    /// numbered names of items may be those.
    QString obstacle(const QString &path, int input) const;
    /// The keys of files by which obstacle() knows them under every name.
    static QSet<QByteArray> keysOf(const QStringList &files);
    /// Why a file cannot be written over; empty where it is none of the sources.
    static QString sourceObstacle(const QString &path, const QSet<QByteArray> &sources);

private:
    bool chooseForm(const QString &name, const QString &where, QString &error);
    bool planFolder(const QString &folder, const QStringList &inputs, QString &error);
    bool planFile(const QString &file, const QStringList &inputs, QString &error);

    TKind fKind = cData;
    QString fForm;
    QString fFolder; // to be made; empty for a file that was named
    QStringList fPaths;
    QSet<QByteArray> fSources; // their keys
    bool fStandardOutput = false;
    bool fForce = false;
    bool fHasSourceFolders = false;
};
