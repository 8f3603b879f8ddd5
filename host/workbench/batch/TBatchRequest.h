#pragma once

#include <QCoreApplication>
#include <QStringList>

/// What is to be made of many files, as the command line program is told of it.
struct TBatchRequest
{
    Q_DECLARE_TR_FUNCTIONS(TBatchRequest)

public:
    QStringList fFiles;
    QString fTemplate; // of the processing; empty for none
    QString fFolder;   // of the results
    QString fForm;     // ending of data files; empty for none
    QString fPicture;  // ending of pictures; empty for none
    bool fAsStack = false;
    bool fReplaces = false; // results that are there already

    /// What is missing to run it, in words for the user; empty when it can run.
    QString missing() const;
    /// The first file whose place its own result would take; empty for none.
    QString replacedFile() const;
    /// The arguments of the program.
    QStringList arguments() const;
    /// Program and arguments as they are typed in a shell.
    QString commandLine() const;
    /// An argument as it is typed in a shell.
    static QString quoted(const QString &argument);
};
