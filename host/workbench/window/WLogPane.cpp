#include "WLogPane.h"

#include "canvas/TCanvasItem.h"
#include "log/TLogger.h"

#include <QFontDatabase>
#include <QPlainTextEdit>

WLogPane::WLogPane(QWidget *parent)
    : WPluginDockWidget("logPane", tr("Log"), parent)
    , fText(new QPlainTextEdit(this))
{
    fText->setReadOnly(true);
    fText->setMaximumBlockCount(cMaxLines);
    fText->setFrameShape(QFrame::NoFrame);
    fText->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setWidget(fText);
    fSink = TLogger::addSink([this](const TLogEntry &entry) {
        if (entry.fLevel <= TLogger::cInformation)
            fText->appendPlainText(
                QString("%1  %2: %3").arg(entry.fTime.toString("hh:mm:ss"), entry.fCategory, entry.fText));
    });
}

WLogPane::~WLogPane()
{
    TLogger::removeSink(fSink);
}
