#include "TBatchRequest.h"

#include <QFileInfo>
#include <QRegularExpression>

QString TBatchRequest::missing() const
{
    if (fFiles.isEmpty())
        return tr("Add the files that are to be processed.");
    if (!fTemplate.isEmpty() && !QFileInfo(fTemplate).isFile())
        return tr("There is no template of that name.");
    if (fFolder.isEmpty())
        return tr("Name the folder for the results.");
    if (QFileInfo::exists(fFolder) && !QFileInfo(fFolder).isDir())
        return tr("The place for the results is a file, not a folder.");
    return fForm.isEmpty() && fPicture.isEmpty() ? tr("Choose a form of the data or a picture.") : QString();
}

QStringList TBatchRequest::arguments() const
{
    const QString folder = fFolder.endsWith('/') ? fFolder : fFolder + '/'; // one that is yet to be made
    QStringList arguments{"process"};
    arguments += fFiles;
    if (!fTemplate.isEmpty())
        arguments += {"--chain", fTemplate};
    if (fAsStack)
        arguments += "--stack";
    if (!fForm.isEmpty())
        arguments += {"-o", folder, "--to", fForm};
    if (!fPicture.isEmpty())
        arguments += {"--plot", folder, "--plot-to", fPicture};
    if (fReplaces)
        arguments += "--force";
    return arguments;
}

QString TBatchRequest::quoted(const QString &argument)
{
    static const QRegularExpression cPlain("^[A-Za-z0-9_./:=,+@%-]+$");
    if (cPlain.match(argument).hasMatch())
        return argument;
    return '\'' + QString(argument).replace('\'', "'\\''") + '\'';
}

QString TBatchRequest::commandLine() const
{
    QStringList words{"zarnu"};
    for (const QString &argument : arguments())
        words.append(quoted(argument));
    return words.join(' ');
}
