#include "WYrexSimplePanels.h"

#include "TYrexProcIds.h"
#include "TYrexProcParams.h"
#include "widgets/TDoubleSpinBox.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QFormLayout>
#include <QLabel>
#include <QSlider>
#include <QSpinBox>

namespace {

QString text(const char *source)
{
    return QCoreApplication::translate("YrexSimplePanels", source);
}

QString label(int id)
{
    return TYrexProcParams::label(id);
}

class WEmptyPanel : public WYrexActionPanel
{
public:
    WEmptyPanel(const QString &objectName, int action, QWidget *parent)
        : WYrexActionPanel(objectName, action, parent)
    {
        auto *nothing = new QLabel(text("There is nothing to set."), this);
        nothing->setEnabled(false);
        form()->addRow(nothing);
    }
};

class WQuotientPanel : public WYrexActionPanel
{
public:
    explicit WQuotientPanel(QWidget *parent)
        : WYrexActionPanel("yrexPQNormalizationGroupBox", cProcQuotientNormalization, parent)
    {
        addCombo("yrexPQNReferenceComboBox", label(74), "normpqnreference", {cQuotientMean, cQuotientMedian},
                 text("The spectrum that all are compared with. At first: Median Spectrum."));
    }
};

class WScatterPanel : public WYrexActionPanel
{
public:
    explicit WScatterPanel(QWidget *parent)
        : WYrexActionPanel("yrexMSCCorrGroupBox", cProcScatterCorrection, parent)
    {
        addCombo("yrexMSCCorrComboBox", text("Correction"), "msccorrmode",
                 {cScatterOffset, cScatterAmplification, cScatterFull},
                 text("What is taken off of each spectrum. At first: Full MSC."))
            ->setCurrentIndex(2);
    }
};

class WPeakPickingPanel : public WYrexActionPanel
{
public:
    explicit WPeakPickingPanel(QWidget *parent)
        : WYrexActionPanel("yrexStdPeakPickingGroupBox", cProcAutoPeakPicking, parent)
    {
        addCombo("yrexstdpppsignComboBox", label(27), "yrexstdpppsign",
                 {cPeaksAuto, cPeaksUpwards, cPeaksDownwards, cPeaksBoth},
                 text("Which way peaks point. At first: Auto."));
        TDoubleSpinBox *noise = addNumber("yrexstdppnoisefactorDoubleSpinBox", label(31), QString(), 0.01, 10.0, 0.01,
                                          2, text("The noise is found in the data."));
        noise->setValue(1.0);
        QSlider *noiseSlider = addSlider("yrexstdppnoisefactorHorizontalSlider", noise, 1, 1000);
        setRowEnabled(noise, false);
        noiseSlider->setEnabled(false);
        TDoubleSpinBox *sensitivity =
            addNumber("yrexstdppsensitivityDoubleSpinBox", label(32), "yrexstdppsensitivity", 0.01, 10.0, 0.01, 2,
                      text("How small a peak may be, 0.01 to 10. At first: 1."));
        sensitivity->setValue(1.0);
        addSlider("yrexstdppsensitivityHorizontalSlider", sensitivity, 1, 1000);
        addCount("yrexstdppmaxnbrpeaksSpinBox", label(33), "yrexstdppmaxnbrpeaks", 1, 100000, 1,
                 text("The largest peaks are kept, 1 to 100000. At first: 1000."));
    }
};

class WGsdPanel : public WYrexActionPanel
{
public:
    explicit WGsdPanel(QWidget *parent)
        : WYrexActionPanel("yrexGsdPeakPickingGroupBox", cProcGsdPeakPicking, parent)
    {
        addNumber("yrexgsdresamplinglambdaDoubleSpinBox", text("Pre-GSD Resampling Lambda"), "yrexgsdresamplinglambda",
                  1.0, 1000.0, 100.0, 1, text("From 1 (no additional smoothing while resampling) to 1000"));
        addCount("yrexgsdresamplingfactorSpinBox", text("Pre-GSD Resampling Factor"), QString(), 0, 100, 2,
                 text("Zero (no resampling) or even factor up to 100"));
        addCheck("yrexgsdresamplingshowCheckBox", text("Visualize Resampling Result"), "yrexgsdresamplingshow",
                 text("Shows the data as they are resampled. At first: off."));
    }
};

} // namespace

WYrexActionPanel *YrexSimplePanels::makeEmpty(const QString &objectName, int action, QWidget *parent)
{
    return new WEmptyPanel(objectName, action, parent);
}

WYrexActionPanel *YrexSimplePanels::makeQuotientNormalization(QWidget *parent)
{
    return new WQuotientPanel(parent);
}

WYrexActionPanel *YrexSimplePanels::makeScatterCorrection(QWidget *parent)
{
    return new WScatterPanel(parent);
}

WYrexActionPanel *YrexSimplePanels::makePeakPicking(QWidget *parent)
{
    return new WPeakPickingPanel(parent);
}

WYrexActionPanel *YrexSimplePanels::makeGsdPeakPicking(QWidget *parent)
{
    return new WGsdPanel(parent);
}
