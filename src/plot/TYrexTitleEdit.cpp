#include "TYrexTitleEdit.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexPlotTitleParser.h"

namespace {

const QString cTitleFormat = QStringLiteral("{Title}");

bool isOwnTitle(const T1DYrexPlot &plot)
{
    return plot.titleProperties().format.contains(cTitleFormat);
}

bool canEdit(const TCanvasYrexSpectrum &item, int index)
{
    return item.dataObj() && item.activeYrexPlot() && item.stack().at(index);
}

QVariantMap stateOf(const TYrexSpectrum &spectrum)
{
    QVariantMap state{{"cached", spectrum.cachedTitle()}};
    if (const TSpectrumParam *param = spectrum.params().getParam(TSpectrumParam::cTitle)) {
        state.insert("text", param->value(0)); // null where it was never set
        state.insert("edited", param->isEdited());
    }
    return state;
}

void restore(TYrexSpectrum &spectrum, const QVariantMap &state)
{
    TSpectrumParams &params = spectrum.params();
    if (state.contains("text") && !params.getParam(TSpectrumParam::cTitle))
        params.append(TSpectrumParam(TSpectrumParam::cTitle, QString(), QString(), 1));
    if (!state.contains("text") && params.at(params.count() - 1).id() == TSpectrumParam::cTitle) {
        params.removeLast(); // setTitle put it there
    } else if (TSpectrumParam *param = params.getParam(TSpectrumParam::cTitle)) {
        const QString text = state.value("text").toString();
        if (text.isNull())
            param->unset();
        else
            param->setValue(0, text);
        param->setEdited(state.value("edited").toBool());
    }
    spectrum.setCachedTitle(state.value("cached").toString());
}

void setTitle(TYrexSpectrum &spectrum, const QString &text)
{
    if (!spectrum.params().getParam(TSpectrumParam::cTitle))
        spectrum.params().append(TSpectrumParam(TSpectrumParam::cTitle, QString(), QString(), 1));
    spectrum.setParamValue(TSpectrumParam::cTitle, 1, text);
    spectrum.params().getParam(TSpectrumParam::cTitle)->setEdited(true);
}

} // namespace

QString TYrexTitleEdit::text(const TCanvasYrexSpectrum &item, int index)
{
    if (!canEdit(item, index))
        return QString();
    const T1DYrexPlot &plot = *item.activeYrexPlot();
    const QString shown =
        isOwnTitle(plot) ? TYrexPlotTitleParser(item, index).parse(cTitleFormat) : plot.titleProperties().format;
    return shown.isNull() ? QString("") : shown; // there is one, without a text
}

QVariant TYrexTitleEdit::swap(TCanvasYrexSpectrum &item, int index, const QVariant &title)
{
    if (!canEdit(item, index))
        return QVariant();
    QVariant before;
    T1DYrexPlot &plot = *item.activeYrexPlot();
    if (isOwnTitle(plot)) {
        TYrexSpectrum &spectrum = *item.stack().at(index);
        before = stateOf(spectrum);
        if (title.type() == QVariant::Map)
            restore(spectrum, title.toMap());
        else
            setTitle(spectrum, title.toString());
    } else {
        before = plot.titleProperties().format;
        plot.titleProperties().format = title.toString();
    }
    item.update();
    return before;
}
