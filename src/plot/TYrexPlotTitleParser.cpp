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

/// The number beside the name of the file; 0 for none. Copies of a spectrum that came alone are numbered in their
/// order where they follow each other in a stack.
int TYrexPlotTitleParser::numberInFile() const
{
    if (fSpectrum->fileNumber() > 0)
        return fSpectrum->fileNumber();
    const TYrexSpectrumList &spectra = fItem.spectra();
    const auto isCopy = [&](int index) {
        const TYrexSpectrum *other = spectra.value(index);
        return other && other->fileNumber() == 0 &&
               other->paramsBundle().fileName() == fSpectrum->paramsBundle().fileName();
    };
    int before = 0;
    while (isCopy(fIndex - before - 1))
        ++before;
    return before > 0 || isCopy(fIndex + 1) ? before + 1 : 0;
}

QString TYrexPlotTitleParser::shownTitle() const
{
    const QString title = fSpectrum->title();
    if (!title.isEmpty()) // underscores of a file's own title lower nothing either; those that a user typed do
        return isTypedTitle() ? title : TTypesetter::escaped(title);
    // an untitled spectrum goes by its file, so that a picture says what it shows
    const QFileInfo info(fSpectrum->paramsBundle().fileName());
    const QString file = TTypesetter::escaped(info.completeBaseName()); // underscores of a file name lower nothing
    const bool isWholeStack = fWholeItem && fItem.isStacked();
    const int number = isWholeStack || file.isEmpty() ? 0 : numberInFile();
    return number > 0 ? QString("%1 %2").arg(file).arg(number) : file;
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
