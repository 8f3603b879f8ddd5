#include "TYrexMarkEditor.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexEditPeak.h"
#include "TYrexCursorInfoHandler.h"
#include "TYrexMarkPlaces.h"
#include "WYrexIntegralDialog.h"
#include "WYrexPeakAnnotationDialog.h"
#include "canvas/TDocument.h"
#include "commands/TCommandHistory.h"
#include "services/IGuiHost.h"
#include "services/IPluginHost.h"
#include "settings/TNumberFormat.h"

TYrexMarkEditor::TYrexMarkEditor(IPluginHost &host)
    : fHost(host)
{
}

/// Of all peaks of the document.
QStringList TYrexMarkEditor::annotations() const
{
    QSet<QString> known;
    for (ICanvasItem *entry : fHost.document()->items()) {
        const TCanvasYrexSpectrum *item = yrexItem(entry);
        if (!item)
            continue;
        for (const TYrexSpectrum *spectrum : item->spectra()) {
            for (const TYrexDPLib::TYrexDPPeak *peak : spectrum->peaks())
                known.insert(peak->annotation);
        }
    }
    known.remove(QString());
    QStringList sorted = known.values();
    sorted.sort(Qt::CaseInsensitive);
    return sorted;
}

bool TYrexMarkEditor::editPeak(TCanvasYrexSpectrum *item, const QUuid &peak)
{
    const TYrexSpectrum *spectrum = item ? item->currentSpectrum() : nullptr;
    const T1DYrexPlot *plot = item ? item->activeYrexPlot() : nullptr;
    const int index = spectrum ? TYrexDPLib::indexOfId(spectrum->peaks(), peak) : -1;
    if (index < 0 || !plot || !fHost.gui())
        return false;
    const TYrexDPLib::TYrexDPPeak &record = *spectrum->peaks().at(index);
    const double x = YrexMarkPlaces::xAt(*spectrum, record.position, plot->xUnits());
    const QString place =
        QString("%1 %2")
            .arg(TNumberFormat::fixed(x, plot->viewDecimals(horzDir)), TYrexCursorInfoHandler::unitSign(plot->xUnits()))
            .trimmed() +
        ", " + TYrexCursorInfoHandler::significant(spectrum->values().value(int(record.position), record.intensity));
    const TYrexPeakPlotProperties &labels = plot->peakProperties();
    const QString prefix = labels.content & TYrexPeakPlotProperties::cPosition
                               ? QString::number(x, 'f', labels.decimals) + ' '
                               : QString();
    const QString before = record.annotation;
    auto *dialog = new WYrexPeakAnnotationDialog(place, prefix, before, annotations(), fHost.gui()->mainWindow());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    const TSecurePtr<TCanvasYrexSpectrum> edited(item);
    connect(dialog, &QDialog::accepted, this, [this, dialog, edited, peak, before] {
        const TYrexSpectrum *still = edited ? edited->currentSpectrum() : nullptr;
        const int present = still ? TYrexDPLib::indexOfId(still->peaks(), peak) : -1;
        if (present >= 0 && dialog->annotation() != before)
            fHost.history().push(new TCmdYrexEditPeak(present, TCmdYrexEditPeak::cAnnotation, dialog->annotation(),
                                                      TCanvasItemList{edited.get()}));
        fHost.gui()->focusPlot();
    });
    dialog->open();
    return true;
}

bool TYrexMarkEditor::editIntegral(TCanvasYrexSpectrum *item, const QUuid &integral, int subType)
{
    const TYrexSpectrum *spectrum = item ? item->currentSpectrum() : nullptr;
    const T1DYrexPlot *plot = item ? item->activeYrexPlot() : nullptr;
    const TYrexIntegrationRegion *region = spectrum ? spectrum->integrals().region(integral) : nullptr;
    if (!region || !plot || !fHost.gui())
        return false;
    WYrexIntegralDialog::TField field = WYrexIntegralDialog::cFrom;
    if (subType == T1DYrexPlot::cLabelArea)
        field = WYrexIntegralDialog::cValue;
    const bool isDescending = plot->horzAxis().direction() == 1;
    if (subType == (isDescending ? T1DYrexPlot::cSegmentLeft : T1DYrexPlot::cSegmentRight))
        field = WYrexIntegralDialog::cTo;
    auto *dialog = new WYrexIntegralDialog(item, integral, field, fHost.gui()->mainWindow());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    const TSecurePtr<TCanvasYrexSpectrum> edited(item);
    const auto show = [this, dialog, edited] {
        if (fShowBand && edited)
            fShowBand(edited.get(), dialog->band().a, dialog->band().b);
    };
    connect(dialog, &WYrexIntegralDialog::bandChanged, this, show);
    connect(dialog, &QDialog::accepted, this, [this, dialog] { dialog->apply(fHost.history()); });
    connect(dialog, &QDialog::finished, this, [this] {
        if (fShowBand)
            fShowBand(nullptr, 0.0, 0.0);
        fHost.gui()->focusPlot();
    });
    show();
    dialog->open();
    return true;
}
