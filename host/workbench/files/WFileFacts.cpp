#include "WFileFacts.h"

#include "FactRows.h"
#include "TPageThumbnail.h"
#include "canvas/TDocument.h"
#include "canvas/TLoadReport.h"
#include "canvas/TPage.h"
#include "consts/Consts.h"
#include "exchange/TScratchImport.h"
#include "params/TSpectrumParam.h"
#include "plugin/IConverter.h"
#include "services/TImportDriver.h"
#include "settings/TNumberFormat.h"

#include <QDateTime>
#include <QFileInfo>
#include <QFormLayout>
#include <QLabel>
#include <QLocale>
#include <QVBoxLayout>

namespace {

constexpr int cPanelWidth = 240;
constexpr QSize cPictureSize(220, 156);

QString rangeText(const QVariantList &ends)
{
    const auto number = [](const QVariant &value) {
        return TNumberFormat::shown(QString::number(value.toDouble(), 'g', 7));
    };
    return ends.size() == 2 ? QString("%1 .. %2").arg(number(ends.first()), number(ends.last())) : QString();
}

} // namespace

WFileFacts::WFileFacts(const TImportDriver &driver, QWidget *parent)
    : QFrame(parent)
    , fDriver(driver)
    , fPicture(new QLabel)
    , fName(new QLabel)
    , fFacts(new QFormLayout)
{
    setObjectName("fileFacts");
    setFixedWidth(cPanelWidth);
    QFont bold = font();
    bold.setBold(true);
    fName->setFont(bold);
    fName->setWordWrap(true);
    auto *layout = new QVBoxLayout(this);
    fPicture->setFixedSize(cPictureSize); // so that the facts below do not jump
    fPicture->setAccessibleName(tr("Preview"));
    layout->addWidget(fPicture);
    layout->addWidget(fName);
    layout->addLayout(fFacts);
    layout->addStretch();
    fTimer.setSingleShot(true);
    fTimer.setInterval(cDelay);
    connect(&fTimer, &QTimer::timeout, this, &WFileFacts::read);
    fPictureTimer.setSingleShot(true);
    fPictureTimer.setInterval(cPictureDelay);
    connect(&fPictureTimer, &QTimer::timeout, this, &WFileFacts::drawPicture);
}

void WFileFacts::showFile(const QString &path)
{
    fPath = path;
    fPictureTimer.stop(); // of a file that is no longer meant
    fTimer.start();
}

QPixmap WFileFacts::picture() const
{
    return fPicture->pixmap(Qt::ReturnByValue);
}

QString WFileFacts::fact(const QString &label) const
{
    return FactRows::text(*fFacts, label);
}

void WFileFacts::addFact(const QString &label, const QString &text)
{
    FactRows::add(*fFacts, label, text);
}

void WFileFacts::read()
{
    while (fFacts->rowCount() > 0)
        fFacts->removeRow(0);
    fPicture->clear();
    const QFileInfo info(fPath);
    fName->setText(info.isFile() ? info.fileName() : QString());
    if (!info.isFile())
        return;
    addFact(tr("Size"), QLocale(QLocale::English).formattedDataSize(info.size()));
    addFact(tr("Changed"), info.lastModified().toString("yyyy-MM-dd HH:mm"));
    if (TDocument::isDocument(fPath))
        addFact(tr("Format"), tr("Kelmora document"));
    else
        addHeader(fPath);
    if (info.size() <= cMaxDrawn)
        fPictureTimer.start();
}

void WFileFacts::drawPicture()
{
    const auto show = [this](const TPage &page) {
        fPicture->setPixmap(pageThumbnail(page, cPictureSize, devicePixelRatioF()));
    };
    if (TDocument::isDocument(fPath)) {
        TDocument document;
        TLoadReport report;
        if (document.loadFrom(fPath, report) && !document.pages().isEmpty())
            show(*document.pages().first());
        return;
    }
    if (!fDriver.converterFor(fPath))
        return;
    TScratchImport file(fDriver, fPath);
    if (!file.isOk() || file.result().fItems.isEmpty())
        return;
    addFact(tr("Spectra"), QString::number(file.spectrumCount()));
    show(file.page());
}

void WFileFacts::addHeader(const QString &path)
{
    if (QFileInfo(path).size() > cMaxText && TImportDriver::looksLikeText(path)) {
        addFact(tr("Format"), tr("text"));
        return;
    }
    IConverter *converter = fDriver.converterFor(path);
    if (!converter) {
        addFact(tr("Format"), tr("not known"));
        return;
    }
    const auto key = [](int id) { return QString::number(id); };
    const QVariantMap facts = converter->metaData(
        path, {Consts::Converter::cXRangeStr, key(TSpectrumParam::cTitle), key(TSpectrumParam::cPointCount),
               key(TSpectrumParam::cOrigXUnits), key(TSpectrumParam::cOrigYUnits), key(TSpectrumParam::cDate)});
    addFact(tr("Format"), converter->formatName());
    addFact(tr("Title"), facts.value(key(TSpectrumParam::cTitle)).toString());
    addFact(tr("Points"), facts.value(key(TSpectrumParam::cPointCount)).toString());
    addFact(tr("Range"), rangeText(facts.value(Consts::Converter::cXRangeStr).toList()));
    addFact(tr("X units"), facts.value(key(TSpectrumParam::cOrigXUnits)).toString());
    addFact(tr("Y units"), facts.value(key(TSpectrumParam::cOrigYUnits)).toString());
    addFact(tr("Date"), facts.value(key(TSpectrumParam::cDate)).toString());
}
