#include "TYrexPlotTitleParser.h"

#include "TCanvasYrexSpectrum.h"
#include "TYrexUnits.h"
#include "plot/TTypesetter.h"

#include <QFileInfo>
#include <QLocale>
#include <QRegularExpression>

TYrexPlotTitleParser::TYrexPlotTitleParser(const TCanvasYrexSpectrum &item, int index)
    : fItem(item)
    , fSpectrum(index < 0 ? item.currentSpectrum() : item.stack().at(index))
    , fIndex(index < 0 ? item.stack().current() : index)
    , fWholeItem(index < 0)
{
}

bool TYrexPlotTitleParser::isTypedTitle() const
{
    const TSpectrumParam *param = fSpectrum->params().getParam(TSpectrumParam::cTitle);
    return param && param->isEdited();
}

/// Spectra of one file stand together in a stack of files; one that came alone needs no number beside its name.
bool TYrexPlotTitleParser::isOneOfItsFile() const
{
    const TYrexSpectrumList &spectra = fItem.spectra();
    for (const int neighbour : {fIndex - 1, fIndex + 1}) {
        const TYrexSpectrum *other = spectra.value(neighbour);
        if (other && other->paramsBundle().fileName() == fSpectrum->paramsBundle().fileName())
            return true;
    }
    return false;
}

QString TYrexPlotTitleParser::shownTitle() const
{
    const QString title = fSpectrum->title();
    if (!title.isEmpty()) // underscores of a file's own title lower nothing either; those that a user typed do
        return isTypedTitle() ? title : TTypesetter::escaped(title);
    // an untitled spectrum goes by its file, so that a picture says what it shows
    const QFileInfo info(fSpectrum->paramsBundle().fileName());
    const QString file = TTypesetter::escaped(info.completeBaseName()); // underscores of a file name lower nothing
    return !fWholeItem && !file.isEmpty() && isOneOfItsFile() ? QString("%1 %2").arg(file).arg(fIndex + 1) : file;
}

QString TYrexPlotTitleParser::valueOf(const QString &name) const
{
    if (name == QLatin1String("Title"))
        return shownTitle();
    if (name == QLatin1String("Comment"))
        return fSpectrum->comment();
    if (name == QLatin1String("Date")) {
        const QDateTime date = fSpectrum->acquisitionDate();
        return date.isValid() ? date.toString(Qt::ISODate) : fSpectrum->dateText();
    }
    if (name == QLatin1String("Class"))
        return fSpectrum->spectrumClass();
    if (name == QLatin1String("Number"))
        return QString::number(fIndex + 1);
    if (name == QLatin1String("Count"))
        return QString::number(fItem.stack().count());
    if (name == QLatin1String("Units"))
        return yrexUnitDisplayName(fSpectrum->yUnits());
    if (name == QLatin1String("File"))
        return TTypesetter::escaped(QFileInfo(fSpectrum->paramsBundle().fileName()).fileName());
    return fSpectrum->paramTextByName(name, 0);
}

QString TYrexPlotTitleParser::parse(const QString &format) const
{
    static const QRegularExpression cPlaceholder("\\{([A-Za-z0-9_.]*)\\}");
    if (!canRun())
        return QString();
    QString text;
    int from = 0;
    QRegularExpressionMatchIterator matches = cPlaceholder.globalMatch(format);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        text += format.midRef(from, match.capturedStart() - from);
        text += valueOf(match.captured(1));
        from = match.capturedEnd();
    }
    text += format.midRef(from);
    return text.trimmed();
}
