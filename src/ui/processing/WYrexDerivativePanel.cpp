#include "WYrexDerivativePanel.h"

#include "TYrexChainRules.h"
#include "TYrexProcIds.h"
#include "TYrexProcParams.h"

#include <QComboBox>
#include <QSpinBox>

namespace {

constexpr int cMaxOrder = 4;
constexpr int cMaxDegree = 6;
constexpr int cNarrowest = 3;
constexpr int cWidest = 101;
constexpr int cMaxLambda = 1000000;

} // namespace

WYrexDerivativePanel::WYrexDerivativePanel(QWidget *parent)
    : WYrexActionPanel("yrexDerivativeGroupBox", cProcDerivative, parent)
{
    fMethod = addCombo("derivativeapproxComboBox", TYrexProcParams::label(49), "derivativeapprox",
                       {cDerivativeSavitzkyGolay, cDerivativeRobustNoise, cDerivativeCentered},
                       tr("How slopes are taken. At first: Savitzky\u2013Golay."));
    fOrder = addCount("derivativeorderSpinBox", TYrexProcParams::label(40), "derivativeorder", 1, cMaxOrder, 1,
                      tr("1 to 4 for Savitzky\u2013Golay, else 1 or 2. At first: 1."));
    fLambda = addCount("derivativerobustnoiselambdaSpinBox", TYrexProcParams::label(41), "derivativerobustnoiselambda",
                       0, cMaxLambda, 10, tr("How strongly noise is held down, 0 and more. At first: 10."));
    fLambda->setKeyboardTracking(false);
    fLambda->setValue(10);
    fDegree = addCount("derivativesgpolydegSpinBox", TYrexProcParams::label(44), "derivativesgpolydeg", 1, cMaxDegree,
                       1, tr("Of the polynomial; what is possible goes by the order. At first: 4."));
    fDegree->setValue(4);
    fWidth = addCount("derivativesgkerlenSpinBox", TYrexProcParams::label(43), "derivativesgkerlen", cNarrowest,
                      cWidest, 2, tr("In points, odd, 3 to 101; higher degrees need more. At first: 9."));
    fWidth->setValue(9);
    addCheck("derivativeinvertsignCheckBox", TYrexProcParams::label(48), "derivativeinvertsign",
             tr("Minima of a second derivative become maxima. At first: off."));
    couple();
}

void WYrexDerivativePanel::widenRanges()
{
    fOrder->setMaximum(cMaxOrder);
    fDegree->setRange(1, cMaxDegree);
    fWidth->setMinimum(cNarrowest);
}

void WYrexDerivativePanel::couple()
{
    const int method = fMethod->currentData().toInt();
    fOrder->setMaximum(TYrexChainRules::derivativeOrders(method));
    const int order = fOrder->value();
    const QPair<int, int> degrees = TYrexChainRules::derivativeDegrees(order);
    fDegree->setRange(degrees.first, degrees.second);
    fWidth->setMinimum(TYrexChainRules::derivativeWindow(order, fDegree->value()));
    setRowEnabled(fLambda, method == cDerivativeRobustNoise);
    setRowEnabled(fDegree, method == cDerivativeSavitzkyGolay);
    setRowEnabled(fWidth, method == cDerivativeSavitzkyGolay);
}
