#include "WPastePreview.h"

#include "FactRows.h"
#include "TPageThumbnail.h"
#include "canvas/TCanvasBaseSpectrum.h"
#include "canvas/TCanvasItem.h"
#include "exchange/TScratchImport.h"
#include "plugin/IPluginUnits.h"
#include "services/TKelmoraHost.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

namespace {

constexpr QSize cPictureSize(240, 170);

QString number(double value)
{
    return QString::number(value, 'g', 7);
}

QString unitName(const QList<TUnitChoice> &choices, int code)
{
    const auto found = std::find_if(choices.begin(), choices.end(),
                                    [code](const TUnitChoice &choice) { return choice.fCode == code; });
    return found == choices.end() ? QString() : found->fName;
}

} // namespace

WPastePreview::WPastePreview(std::unique_ptr<TScratchImport> table, const TKelmoraHost &host, QWidget *parent)
    : QDialog(parent)
    , fTable(std::move(table))
    , fFacts(new QFormLayout)
{
    setObjectName("pastePreview");
    setWindowTitle(tr("Paste Numbers"));
    auto *picture = new QLabel(this);
    picture->setPixmap(pageThumbnail(fTable->page(), cPictureSize, devicePixelRatioF()));
    picture->setAccessibleName(tr("Preview"));
    auto *row = new QHBoxLayout;
    row->addLayout(fFacts, 1);
    row->addWidget(picture);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("&Paste"));
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *column = new QVBoxLayout(this);
    column->addLayout(row);
    column->addWidget(buttons);
    addNumbers();
    addUnits(host);
}

WPastePreview::~WPastePreview() = default;

void WPastePreview::addFact(const QString &label, const QString &text)
{
    FactRows::add(*fFacts, label, text);
}

QString WPastePreview::fact(const QString &label) const
{
    return FactRows::text(*fFacts, label);
}

void WPastePreview::addNumbers()
{
    QVector<TShownSeries> series;
    for (ICanvasItem *item : fTable->result().fItems) {
        if (const auto *spectrum = dynamic_cast<TCanvasBaseSpectrum *>(item))
            series += spectrum->shownSeries();
    }
    if (series.isEmpty() || series.first().fX.isEmpty())
        return;
    const TShownSeries &first = series.first();
    double low = first.fY.first(), high = low;
    for (const TShownSeries &one : qAsConst(series)) {
        for (const double y : one.fY) {
            low = qMin(low, y);
            high = qMax(high, y);
        }
    }
    addFact(tr("Rows"), QString::number(first.fX.size()));
    addFact(tr("Columns"), QString::number(series.size() + 1));
    addFact(tr("Spectra"), QString::number(series.size()));
    addFact(tr("Range of x"), QString("%1 .. %2").arg(number(first.fX.first()), number(first.fX.last())));
    addFact(tr("Range of y"), QString("%1 .. %2").arg(number(low), number(high)));
}

void WPastePreview::addUnits(const TKelmoraHost &host)
{
    TCanvasItem *item = canvasItem(fTable->result().fItems.first());
    for (QObject *plugin : host.plugins()) {
        const auto *units = qobject_cast<IPluginUnits *>(plugin);
        if (!units || !units->hasUnknownUnits(item))
            continue;
        const TUnitPair guess = units->guessUnits(item, fTable->path());
        addFact(tr("Units"), tr("%1, %2 (a guess)")
                                 .arg(unitName(units->unitChoices(horzDir), guess.fX),
                                      unitName(units->unitChoices(vertDir), guess.fY)));
        return;
    }
    const auto *spectrum = dynamic_cast<TCanvasBaseSpectrum *>(item);
    const QVector<TShownSeries> series = spectrum ? spectrum->shownSeries() : QVector<TShownSeries>();
    if (!series.isEmpty())
        addFact(tr("Units"), QString("%1, %2").arg(series.first().fXUnit, series.first().fYUnit));
}
