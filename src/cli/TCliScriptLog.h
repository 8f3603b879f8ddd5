#pragma once

#include "script/TScriptWriter.h"

#include <QSize>
#include <QString>
#include <QStringList>

class TCliTarget;
class TCommandHistory;
struct TCliInput;

/// Writes what was done to the inputs of a command as a script that does it again, with the files that were written.
class TCliScriptLog
{
public:
    /// False with an error when the file cannot be written or is one of the inputs. An empty path plans nothing.
    bool plan(const QString &path, bool replaces, const QStringList &inputs, QString &error);
    bool isPlanned() const { return !fPath.isEmpty(); }

    /// An input begins, in a document of its own.
    void begin(const TCliInput &input);
    /// The steps of a history, from the first on.
    void addSteps(const TCommandHistory &history);
    /// The data files of an input; what goes to standard output is left out.
    void addData(const TCliTarget &target, const TCliInput &input, int index);
    /// Pictures of `size` pixels.
    void addPictures(const TCliTarget &target, const TCliInput &input, int index, const QSize &size);

    bool write(const QString &remark, QString &error) const;

private:
    void add(const QString &function, const QVariantList &arguments);

    QString fPath;
    QVector<TScriptWriter::TUndoStep> fSteps;
    bool fHasInput = false;
};
