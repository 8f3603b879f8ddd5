#include "WYrexBaselinePanel.h"

#include "TYrexProcIds.h"
#include "TYrexProcParams.h"
#include "TYrexSpectrum.h"
#include "WYrexFactorCurve.h"
#include "widgets/TDoubleSpinBox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QSlider>

namespace {

constexpr int cTicksPerDecade = 100; // the slider holds the exponent times 100

struct TAlgorithmTexts
{
    int fAlgorithm, fFactor, fAuto, fCredit; // ids of labels
};
constexpr TAlgorithmTexts cTexts[] = {
    {cBaselineAsLs, 23, 91, 61},
    {cBaselineIAsLs, 23, 91, 79},
    {cBaselineSnip, 82, 92, 83},
};

const TAlgorithmTexts &textsOf(int algorithm)
{
    for (const TAlgorithmTexts &texts : cTexts) {
        if (texts.fAlgorithm == algorithm)
            return texts;
    }
    return cTexts[0];
}

} // namespace

WYrexBaselinePanel::WYrexBaselinePanel(QWidget *parent)
    : WYrexActionPanel("yrexAlsBCGroupBox", cProcAutoBaseline, parent)
    , fAuto(new QPushButton(this))
    , fCredit(new QLabel(this))
    , fDoi(new QLabel(this))
    , fCurve(new WYrexFactorCurve(this))
{
    fAlgorithm = addCombo("yrexalsbaselinealgorithmComboBox", TYrexProcParams::label(80), cKeyBaselineAlgorithm,
                          {cBaselineAsLs, cBaselineIAsLs, cBaselineSnip},
                          tr("How the baseline is found. At first: PLS IAsLeastSquares."));
    fAlgorithm->setCurrentIndex(1);
    fFactor = addNumber("yrexalsbaselinelog10lambdaDoubleSpinBox", TYrexProcParams::label(23), cKeyBaselineLambda, 0.1,
                        12.0, 0.1, 2, TYrexProcParams::label(62));
    fFactor->setValue(7.0);
    QSlider *slider = addSlider("yrexalsbaselinelog10lambdaHorizontalSlider", fFactor, 10, 1200);
    slider->setTickPosition(QSlider::TicksBelow);
    slider->setTickInterval(cTicksPerDecade);
    fRatio = addNumber("yrexalsbaselineratioDoubleSpinBox", TYrexProcParams::label(24), cKeyBaselineRatio, 0.000001,
                       1.0, 0.000002, 6, TYrexProcParams::label(63));
    fAuto->setObjectName("yrexalsbaselineautolambdaPushButton");
    fAuto->setCheckable(true);
    fAuto->setToolTip(tr("Finds the value in the data while the baseline is shown. At first: off."));
    form()->addRow(fAuto);
    connect(fAuto, &QPushButton::clicked, this, [this] { noteEdit(fAuto); });
    fShowOnly = addCheck("yrexalsbaselineshowonlyCheckBox", TYrexProcParams::label(25), cKeyBaselineShowOnly,
                         tr("Draws the baseline over the data instead of taking it off. At first: off."));
    fCredit->setObjectName("yrexalsbaselineLabel");
    fCredit->setWordWrap(true);
    fDoi->setObjectName("yrexalsbaselineDOILabel");
    fDoi->setTextFormat(Qt::RichText);
    fDoi->setOpenExternalLinks(true);
    fDoi->setTextInteractionFlags(Qt::TextBrowserInteraction);
    form()->addRow(fCurve);
    form()->addRow(fCredit);
    form()->addRow(fDoi);
    connect(fCurve, &WYrexFactorCurve::factorChosen, this, &WYrexBaselinePanel::takeFactor);
    couple();
}

void WYrexBaselinePanel::store(QVariantMap &map)
{
    WYrexActionPanel::store(map);
    if (fAuto->isChecked())
        map.insert(cKeyBaselineAutoLambda, true);
    else
        map.remove(cKeyBaselineAutoLambda);
}

void WYrexBaselinePanel::loadOthers(const QVariantMap &map)
{
    fAuto->setChecked(map.value(cKeyBaselineAutoLambda).toBool());
}

void WYrexBaselinePanel::setSpectrum(const TYrexSpectrum *spectrum)
{
    if (!spectrum)
        fCurve->setKept(false);
    fCurve->setScores(spectrum ? spectrum->procParams().factorScores() : WYrexFactorCurve::TScores());
}

/// A factor that is taken by hand holds, so that nothing is searched any more; the curve stays to choose again.
void WYrexBaselinePanel::takeFactor(double factor)
{
    constexpr double cSame = 0.005; // the box shows two digits
    fCurve->setKept(true);
    fKeptAlgorithm = fAlgorithm->currentData().toInt();
    fAuto->setChecked(false);
    if (qAbs(fFactor->value() - factor) < cSame)
        noteEdit(fAuto);
    else
        fFactor->setValue(factor);
}

void WYrexBaselinePanel::updateCurve()
{
    if (fAlgorithm->currentData().toInt() != fKeptAlgorithm)
        fCurve->setKept(false); // another method has another criterion
    fCurve->setFactor(fFactor->value());
    fCurve->setVisible(fShowOnly->isChecked() && fCurve->hasScores() && (fAuto->isChecked() || fCurve->isKept()));
}

void WYrexBaselinePanel::couple()
{
    const int algorithm = fAlgorithm->currentData().toInt();
    const TAlgorithmTexts &texts = textsOf(algorithm);
    labelOf(fFactor)->setText(TYrexProcParams::label(texts.fFactor));
    fFactor->setAccessibleName(TYrexProcParams::label(texts.fFactor));
    fAuto->setText(TYrexProcParams::label(texts.fAuto));
    setRowVisible(fRatio, algorithm != cBaselineSnip);
    setRowEnabled(fRatio, algorithm != cBaselineSnip);
    const QString credit = TYrexProcParams::label(texts.fCredit);
    const int at = credit.indexOf(QLatin1String("DOI "));
    const QString doi = at < 0 ? QString() : credit.mid(at + 4).trimmed();
    QString publication = at < 0 ? credit : credit.left(at).trimmed();
    while (publication.endsWith(','))
        publication.chop(1);
    fCredit->setText(publication);
    updateCurve();
    fDoi->setText(QString("<a href=\"https://doi.org/%1\">DOI</a> %1").arg(doi.toHtmlEscaped()));
}
