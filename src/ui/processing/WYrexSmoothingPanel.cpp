#include "WYrexSmoothingPanel.h"

#include "TYrexChainRules.h"
#include "TYrexProcIds.h"
#include "TYrexProcParams.h"
#include "widgets/TDoubleSpinBox.h"

#include <QComboBox>
#include <QLabel>
#include <QSpinBox>
#include <cmath>

namespace {

constexpr int cNarrowest = 5;
constexpr int cWidest = 101;
constexpr int cMaxFactor = 1000000;
constexpr double cHalfDigit = 0.005;

} // namespace

WYrexSmoothingPanel::WYrexSmoothingPanel(QWidget *parent)
    : WYrexActionPanel("yrexSmoothingGroupBox", cProcSmoothing, parent)
{
    fMethod = addCombo("smoothmethodComboBox", tr("Method"), cKeySmoothMethod,
                       {cSmoothSavitzkyGolay, cSmoothNonlocalMeans, cSmoothMedianWiener, cSmoothExponential},
                       tr("How noise is taken out. At first: Savitzky\u2013Golay."));
    fFactor = addNumber("smoothingDoubleSpinBox", TYrexProcParams::label(16), QString(), 0.05, cMaxFactor, 0.05, 2,
                        tr("How strongly: 0.05 and more. At first: 5, of the noise 0.5."));
    fFactor->setValue(0.5);
    fMode = addCombo("nlmmodeComboBox", TYrexProcParams::label(11), cKeyNlmMode,
                     {cNlmBlockwise, cNlmPixelwise, cNlmFastPixelwise}, tr("What is compared. At first: Blockwise."));
    fDegree = addCount("sgsmoothinggpolydegSpinBox", TYrexProcParams::label(47), cKeySmoothDegree, 2, 5, 1,
                       tr("Of the polynomial, 2 to 5. At first: 4."));
    fDegree->setValue(4);
    fWidth = addCount("sgsmoothingkerlenSpinBox", TYrexProcParams::label(46), cKeySmoothWindow, cNarrowest, cWidest, 2,
                      tr("In points, odd, 5 to 101, and 7 or more from degree 4 on. At first: 9."));
    fWidth->setValue(9);
    connect(fFactor, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, [this](double value) {
        if (isLoading() || factorKey().isEmpty())
            return;
        fFactors.insert(factorKey(), value);
        noteEdit(fFactor);
    });
    couple();
}

QString WYrexSmoothingPanel::factorKey() const
{
    switch (fMethod->currentData().toInt()) {
    case cSmoothExponential:
        return cKeySmoothParam;
    case cSmoothNonlocalMeans:
        return cKeyNlmNoiseFactor;
    default:
        return QString();
    }
}

void WYrexSmoothingPanel::widenRanges()
{
    fWidth->setMinimum(cNarrowest);
}

void WYrexSmoothingPanel::loadOthers(const QVariantMap &map)
{
    for (const char *key : {cKeySmoothParam, cKeyNlmNoiseFactor}) {
        if (map.contains(key))
            fFactors.insert(key, map.value(key));
    }
    fShownFactor.clear();
}

void WYrexSmoothingPanel::store(QVariantMap &map)
{
    WYrexActionPanel::store(map);
    const QString key = factorKey();
    if (fFactors.contains(key))
        map.insert(key, fFactors.value(key));
}

/// The box shows the factor of the method that is chosen; a method without one leaves it.
void WYrexSmoothingPanel::showFactor()
{
    const QString key = factorKey();
    if (key.isEmpty() || key == fShownFactor)
        return;
    fShownFactor = key;
    const QString text = TYrexProcParams::label(key == cKeySmoothParam ? 16 : 10);
    labelOf(fFactor)->setText(text);
    fFactor->setAccessibleName(text);
    const double factor = fFactors.value(key, fFactor->value()).toDouble();
    if (std::fabs(factor - fFactor->value()) < cHalfDigit)
        return;
    const QSignalBlocker blocker(fFactor);
    fFactor->setValue(factor);
}

void WYrexSmoothingPanel::couple()
{
    const int method = fMethod->currentData().toInt();
    const bool isMeans = method == cSmoothNonlocalMeans;
    const bool isPolynomial = method == cSmoothSavitzkyGolay;
    showFactor();
    setRowEnabled(fFactor, method == cSmoothExponential || (isMeans && fMode->currentData() == int(cNlmBlockwise)));
    setRowEnabled(fMode, isMeans);
    setRowEnabled(fDegree, isPolynomial);
    setRowEnabled(fWidth, isPolynomial);
    fWidth->setMinimum(TYrexChainRules::smoothingWindow(fDegree->value()));
}
