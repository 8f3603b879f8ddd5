#include "WYrexPluginDockWidget.h"

#include "TCanvasYrexSpectrum.h"
#include "services/IGuiHost.h"
#include "services/IPluginHost.h"
#include "widgets/GuiUtils.h"

#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr int cMargin = 6;

} // namespace

WYrexPluginDockWidget::WYrexPluginDockWidget(IPluginHost &host, const QString &name, const QString &title,
                                             QWidget *parent)
    : WPluginDockWidget(name, title, parent)
    , fHost(host)
    , fHeader(new QLabel)
{
    auto *page = new QWidget(this);
    auto *column = new QVBoxLayout(page);
    column->setContentsMargins(cMargin, cMargin, cMargin, cMargin);
    column->setSpacing(cMargin);
    fHeader->setObjectName("dockHeader");
    fHeader->setTextFormat(Qt::PlainText);
    fHeader->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    column->addWidget(fHeader);
    setWidget(page);
}

void WYrexPluginDockWidget::setContent(QWidget *content)
{
    fContent = content;
    static_cast<QVBoxLayout *>(widget()->layout())->addWidget(content, 1);
    widget()->setFocusProxy(content);
}

TCanvasYrexSpectrum *WYrexPluginDockWidget::spectrumItem() const
{
    TCanvasYrexSpectrum *shown = yrexItem(item());
    return shown && shown->currentSpectrum() ? shown : nullptr;
}

TYrexSpectrum *WYrexPluginDockWidget::spectrum() const
{
    const TCanvasYrexSpectrum *shown = spectrumItem();
    return shown ? shown->currentSpectrum() : nullptr;
}

void WYrexPluginDockWidget::showHeader(int itemCount)
{
    const TCanvasYrexSpectrum *shown = spectrumItem();
    fHeader->setEnabled(shown != nullptr);
    if (fContent)
        fContent->setEnabled(shown != nullptr);
    if (!shown) {
        fHeader->setText(tr("No spectrum is active."));
        return;
    }
    const QString active = shown->spectrumTitle(shown->stack().current());
    const QString name = shown->title(true).section('\n', 0, 0).trimmed();
    const QString both = name.isEmpty() || name == active ? active : tr("%1: %2").arg(name, active);
    fHeader->setText(itemCount > 1 ? tr("Applies to %1 items").arg(itemCount) : both);
    fHeader->setToolTip(Utils::Gui::dataTip(both));
}

void WYrexPluginDockWidget::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        fHost.gui()->focusPlot();
    else
        WPluginDockWidget::keyPressEvent(event);
}
