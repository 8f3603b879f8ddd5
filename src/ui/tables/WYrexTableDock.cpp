#include "WYrexTableDock.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "commands/TCommandHistory.h"
#include "services/IGuiHost.h"
#include "services/IPluginHost.h"
#include "tables/TablePlacing.h"

#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr int cMargin = 6;

} // namespace

WYrexTableDock::WYrexTableDock(const QString &name, const QString &title, IPluginHost &host, QWidget *parent)
    : WPluginDockWidget(name, title, parent)
    , fHost(host)
    , fNames(new QLabel(this))
    , fNothing(new QLabel(this))
{
    auto *page = new QWidget(this);
    fColumn = new QVBoxLayout(page);
    fColumn->setContentsMargins(cMargin, cMargin, cMargin, cMargin);
    fColumn->setSpacing(cMargin);
    fColumn->addWidget(fNames);
    fColumn->addWidget(fNothing, 1);
    fNames->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    fNames->setTextFormat(Qt::PlainText);
    fNothing->setAlignment(Qt::AlignCenter);
    fNothing->setWordWrap(true);
    fNothing->setEnabled(false); // the grey of disabled things
    setWidget(page);
    connect(this, &QDockWidget::visibilityChanged, this, [this](bool isSeen) {
        if (isSeen && fIsStale)
            refresh();
    });
}

void WYrexTableDock::setContent(QWidget *content, QWidget *focused)
{
    fContent = content;
    fColumn->addWidget(content, 1);
    widget()->setFocusProxy(focused);
}

TCanvasYrexSpectrum *WYrexTableDock::spectrumItem() const
{
    TCanvasYrexSpectrum *shown = yrexItem(item());
    const T1DYrexPlot *plot = shown ? shown->activeYrexPlot() : nullptr;
    return plot && plot->kind() == T1DYrexPlot::cSpectrumKind && shown->currentSpectrum() ? shown : nullptr;
}

QString WYrexTableDock::whyNot() const
{
    if (!spectrumItem())
        return tr("No spectrum is active.");
    // the spectrum is a stage of its chain then, and the end of the session puts back what it found
    return fHost.gui() && fHost.gui()->editSession() ? tr("Baseline points are being edited.") : QString();
}

void WYrexTableDock::refresh()
{
    TCanvasYrexSpectrum *shown = spectrumItem();
    fIsStale = shown && !isVisible();
    if (fIsStale || !fContent)
        return;
    const QString reason = whyNot();
    fNothing->setText(reason);
    fNothing->setVisible(!reason.isEmpty());
    fNames->setVisible(reason.isEmpty());
    fContent->setVisible(reason.isEmpty());
    fContent->setEnabled(reason.isEmpty());
    if (shown)
        showNames(*shown);
    read(shown);
}

void WYrexTableDock::showNames(const TCanvasYrexSpectrum &item)
{
    const QString active = item.spectrumTitle(item.stack().current());
    const QString name = item.title(true).section('\n', 0, 0).trimmed(); // a line, however many spectra there are
    QString text = name.isEmpty() || name == active ? active : tr("%1: %2").arg(name, active);
    if (!remark().isEmpty())
        text += QString::fromUtf8("  \u00B7  ") + remark();
    fNames->setText(text);
}

bool WYrexTableDock::push(TCommand *command) const
{
    const bool isDone = fHost.history().push(command);
    if (fHost.gui())
        fHost.gui()->updateActions();
    return isDone;
}

void WYrexTableDock::placeOnPage(const TTableProperties &properties) const
{
    if (TCanvasYrexSpectrum *shown = spectrumItem())
        TablePlacing::place(shown, properties, fHost.history());
    if (fHost.gui())
        fHost.gui()->updateActions();
}

void WYrexTableDock::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && fHost.gui())
        fHost.gui()->focusPlot();
    else
        WPluginDockWidget::keyPressEvent(event);
}
