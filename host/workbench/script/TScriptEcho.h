#pragma once

#include "script/TScriptWriter.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

class TDocument;
class TDocumentController;

/// Tells of each step that the user does by the lines of a script that does it, once the step is whole.
class TScriptEcho : public QObject
{
    Q_OBJECT

public:
    TScriptEcho(TDocumentController &documents, QObject *parent);

    /// What was done so far is not told, as the steps of a script.
    void passOver();

signals:
    void echoed(const QString &line);

private:
    void follow(TDocument *document);
    void tell();

    QPointer<TDocument> fDocument;
    QTimer fTimer; // a gesture ends without a signal
    TScriptWriter fWriter;
    int fTold = 0; // the number of the last command that was told
};
