#include "TCliTarget.h"

#include "TCliArguments.h"
#include "TCliSpool.h"
#include "utils/FSUtils.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>

namespace {

struct TForm
{
    const char *fName;
    TCliTarget::TKind fKind;
    bool fIsText;
};

// the first of a kind is what a folder gets when nothing else is said
const TForm cForms[] = {
    {"csv", TCliTarget::cData, true},     {"json", TCliTarget::cData, true},    {"klm", TCliTarget::cData, false},
    {"jdx", TCliTarget::cData, true},     {"dx", TCliTarget::cData, true},      {"png", TCliTarget::cPicture, false},
    {"svg", TCliTarget::cPicture, false}, {"pdf", TCliTarget::cPicture, false},
};

const TForm *formOf(TCliTarget::TKind kind, const QString &name)
{
    for (const TForm &form : cForms) {
        if (form.fKind == kind && (name.isEmpty() || name == QLatin1String(form.fName)))
            return &form;
    }
    return nullptr;
}

/// File names in a folder: the inputs' names with another ending, or, where two would be the same, behind the ending
/// that they have.
QStringList namesInFolder(const QStringList &inputs, const QString &form)
{
    QHash<QString, int> uses;
    for (const QString &input : inputs)
        ++uses[QFileInfo(TCliSpool::shownName(input)).completeBaseName()];
    QStringList names;
    for (const QString &input : inputs) {
        const QFileInfo info(TCliSpool::shownName(input));
        const bool isUnique = uses.value(info.completeBaseName()) == 1 && !info.completeBaseName().isEmpty();
        names.append((isUnique ? info.completeBaseName() : info.fileName()) + '.' + form);
    }
    return names;
}

} // namespace

QString TCliTarget::formNames(TKind kind)
{
    QStringList names;
    for (const TForm &form : cForms) {
        if (form.fKind == kind)
            names.append(form.fName);
    }
    return names.join(", ");
}

QString TCliTarget::obstacle(const QString &path, bool force)
{
    const QFileInfo info(path);
    if (!info.exists() && !info.isSymLink())
        return QString();
    if (!force)
        return QString("%1 exists; --force replaces it").arg(path);
    // renaming over a device or a folder would not write to it
    return info.isFile() ? QString() : QString("%1 is no file that can be replaced").arg(path);
}

QSet<QByteArray> TCliTarget::keysOf(const QStringList &files)
{
    QSet<QByteArray> keys;
    for (const QString &file : files) // standard input is a file where the shell opened one
        keys.insert(Utils::FS::fileKey(file == "-" ? QString("/dev/stdin") : file));
    keys.remove(QByteArray()); // of what does not exist
    return keys;
}

QString TCliTarget::sourceObstacle(const QString &path, const QSet<QByteArray> &sources)
{
    return sources.contains(Utils::FS::fileKey(path)) ? QString("%1 is one of the files to read").arg(path) : QString();
}

void TCliTarget::setSources(const QStringList &files)
{
    fSources = keysOf(files);
}

QString TCliTarget::obstacle(const QString &path, int input) const
{
    const QString source = sourceObstacle(path, fSources);
    if (!source.isEmpty())
        return source;
    if (path != fPaths.value(input) && fPaths.contains(path))
        return QString("%1 is the output of another input").arg(path);
    return obstacle(path, fForce);
}

bool TCliTarget::chooseForm(const QString &name, const QString &where, QString &error)
{
    const TForm *form = formOf(fKind, name.toLower());
    if (!form)
        error = QString("%1: unknown form %2; known are %3").arg(where, name, formNames(fKind));
    else if (fStandardOutput && !form->fIsText)
        error = QString("%1: %2 is no text and does not go to standard output").arg(where, form->fName);
    else
        fForm = form->fName;
    return error.isEmpty();
}

bool TCliTarget::planFolder(const QString &folder, const QStringList &inputs, QString &error)
{
    const QFileInfo present(QDir::cleanPath(folder)); // a file is not found by a name that ends in /
    if (present.exists() && !present.isDir()) {
        error = QString("%1 is no folder").arg(folder);
        return false;
    }
    fFolder = folder;
    QHash<QString, QString> inputOf;
    const QStringList names = namesInFolder(inputs, fForm);
    for (int i = 0; i < inputs.size(); ++i) {
        const QString path = QDir(folder).filePath(names.at(i));
        if (inputOf.contains(path)) {
            error = QString("%1 and %2 would both be written to %3").arg(inputOf.value(path), inputs.at(i), path);
            return false;
        }
        inputOf.insert(path, inputs.at(i));
        fPaths.append(path);
    }
    return true;
}

bool TCliTarget::planFile(const QString &file, const QStringList &inputs, QString &error)
{
    if (inputs.size() > 1)
        error = QString("several inputs cannot go to one file %1; name a folder, with a / at its end").arg(file);
    else if (!QFileInfo(QFileInfo(file).absolutePath()).isDir())
        error = QString("%1: there is no such folder").arg(QFileInfo(file).path());
    fPaths.append(file);
    return error.isEmpty();
}

bool TCliTarget::plan(TKind kind, const TCliArguments &arguments, const QStringList &inputs, QString &error)
{
    const QString option = kind == cData ? "-o" : "--plot";
    const QString formOption = kind == cData ? "--to" : "--plot-to";
    fKind = kind;
    fForce = arguments.has("--force");
    fHasSourceFolders = arguments.has("--source-paths");
    const QString out = arguments.value(option);
    const QString form = arguments.value(formOption);
    fStandardOutput = out == "-";
    const bool isFolder = out.endsWith('/') || QFileInfo(out).isDir();
    if (!form.isEmpty() && !isFolder && !fStandardOutput) {
        error = QString("%1 goes with a folder%2").arg(formOption, kind == cData ? " or -" : "");
        return false;
    }
    if (out.isEmpty())
        return true;
    const bool byEnding = !isFolder && !fStandardOutput;
    if (byEnding && QFileInfo(out).suffix().isEmpty()) {
        error = QString("%1: the name has no ending; known are %2").arg(out, formNames(kind));
        return false;
    }
    if (!chooseForm(byEnding ? QFileInfo(out).suffix() : form, byEnding ? out : option, error))
        return false;
    if (fStandardOutput && inputs.size() > 1) {
        error = "several inputs cannot go to standard output; name a folder, with a / at its end";
        return false;
    }
    if (fStandardOutput)
        return true;
    if (isFolder ? !planFolder(out, inputs, error) : !planFile(out, inputs, error))
        return false;
    for (int i = 0; i < fPaths.size() && error.isEmpty(); ++i)
        error = obstacle(fPaths.at(i), i);
    return error.isEmpty();
}

QStringList TCliTarget::itemPaths(int input, int itemCount) const
{
    const QString whole = path(input);
    if (itemCount == 1)
        return {whole};
    const QString base = whole.left(whole.size() - fForm.size() - 1);
    const QString ending = whole.mid(base.size());
    QStringList paths;
    for (int item = 1; item <= itemCount; ++item)
        paths.append(base + '-' + QString::number(item) + ending);
    return paths;
}

bool TCliTarget::makeFolder(QString &error) const
{
    if (fFolder.isEmpty() || QDir().mkpath(fFolder))
        return true;
    error = QString("the folder %1 cannot be made").arg(fFolder);
    return false;
}
