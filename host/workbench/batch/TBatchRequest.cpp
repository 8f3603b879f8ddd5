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
    if (fForm.isEmpty() && fPicture.isEmpty())
        return tr("Choose a form of the data or a picture.");
    const QString replaced = replacedFile();
    return replaced.isEmpty() ? QString()
                              : tr("The result of %1 would take its own place. Name another folder for the results.")
                                    .arg(QFileInfo(replaced).fileName());
}

QString TBatchRequest::replacedFile() const
{
    const QString folder = QFileInfo(fFolder).canonicalFilePath();
    if (!fReplaces || fForm.isEmpty() || folder.isEmpty())
        return QString();
    const QStringList named = fAsStack ? QStringList(fFiles.mid(0, 1)) : fFiles; // a stack goes by the first
    for (const QString &file : named) {
        const QFileInfo info(file);
        if (info.suffix().compare(fForm, Qt::CaseInsensitive) == 0 && info.canonicalPath() == folder)
            return file;
    }
    return QString();
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
