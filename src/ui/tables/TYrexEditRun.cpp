#include "TYrexEditRun.h"

#include "canvas/TDocument.h"
#include "commands/TCommandHistory.h"
#include "services/IPluginHost.h"

TYrexEditRun::TYrexEditRun(IPluginHost &host, QObject *parent)
    : QObject(parent)
    , fHost(host)
{
    fEnd.setSingleShot(true);
    fEnd.setInterval(cTime);
    connect(&fEnd, &QTimer::timeout, this, &TYrexEditRun::end);
}

void TYrexEditRun::goOn()
{
    TDocument *document = fHost.document();
    if (!document)
        return;
    if (fDocument != document || document->history().gesture() != fGesture) {
        end();
        document->history().beginEditRun();
        fDocument = document;
        fGesture = document->history().gesture();
    }
    fEnd.start();
}

void TYrexEditRun::end()
{
    fEnd.stop();
    // another gesture may have begun since
    if (fDocument && fDocument->history().gesture() == fGesture)
        fDocument->history().endGesture();
    fDocument = nullptr;
}
