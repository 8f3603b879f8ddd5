#include "WYrexArithmeticDialog.h"

#include "TCanvasYrexSpectrum.h"
#include "TCmdYrexArithmeticOp.h"
#include "TYrexSpectrumListTableModel.h"
#include "WYrexArithmeticSelectSpectrumDialog.h"
#include "widgets/WProblemLabel.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QEvent>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QSignalBlocker>
#include <QSlider>
#include <QToolButton>
#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double cStepsPerUnit = 5.0; // of the slider
constexpr int cSliderMiddle = 50;
constexpr int cGap = 12; // pixels between the dialog and the plot

int sliderPosition(double factor)
{
    return qRound(factor * cStepsPerUnit + cSliderMiddle);
}

double factorAt(int position)
{
    return (position - cSliderMiddle) / cStepsPerUnit;
}

bool isOfOneSize(const TCanvasYrexSpectrum &item)
{
    const TYrexSpectrumList &spectra = item.spectra();
    return std::all_of(spectra.begin(), spectra.end(), [&spectra](const TYrexSpectrum *spectrum) {
        return spectrum->pointCount() == spectra.first()->pointCount();
    });
}

QHBoxLayout *operandRow(QGroupBox *box, QLabel *label, QToolButton *button)
{
    auto *row = new QHBoxLayout;
    label->setParent(box);
    label->setMinimumWidth(260);
    button->setParent(box);
    button->setText(QStringLiteral("..."));
    row->addWidget(label, 1);
    row->addWidget(button);
    return row;
}

/// Where a window of that size stands beside a part of the screen: right, left, below or above, else at the screen's
/// right edge.
QPoint placeBeside(const QRect &clear, const QSize &size, const QRect &screen)
{
    const QList<QPoint> places{{clear.right() + cGap, clear.top()},
                               {clear.left() - cGap - size.width(), clear.top()},
                               {clear.left(), clear.bottom() + cGap},
                               {clear.left(), clear.top() - cGap - size.height()}};
    for (const QPoint &place : places) {
        if (screen.contains(QRect(place, size)))
            return place;
    }
    return {screen.right() - size.width(), qBound(screen.top(), clear.top(), screen.bottom() - size.height())};
}

} // namespace

WYrexArithmeticDialog::WYrexArithmeticDialog(const TCanvasItemList &items, double factor, QWidget *parent)
    : QDialog(parent)
    , fModel(new TYrexSpectrumListTableModel(items, this))
    , fFactor(factor)
{
    setObjectName("WYrexArithmeticDialog");
    setWindowTitle(tr("Zarnu Arithmetics"));
    fTextLabel1 = new QLabel(tr("<html><head/><body><p><span style=\" font-size:11pt;\">Spectral Subtraction/Addition: "
                                "A → A - k · B</span></p></body></html>"),
                             this);
    fTextLabel1->setObjectName("fTextLabel1");
    fTextLabel1->setTextFormat(Qt::RichText);
    makeOperands();
    makeFactor();
    makeLayout();
    connect(fFirstSpcToolButton, &QToolButton::clicked, this,
            [this] { pick(WYrexArithmeticSelectSpectrumDialog::cSpectrumA); });
    connect(fSecondSpcToolButton, &QToolButton::clicked, this,
            [this] { pick(WYrexArithmeticSelectSpectrumDialog::cSpectrumB); });
    connect(fFirstToOriginalCheckBox, &QCheckBox::toggled, this, &WYrexArithmeticDialog::validate);
    connect(fPointByPointCheckBox, &QCheckBox::toggled, this, &WYrexArithmeticDialog::validate);
    chooseFirst();
    showNames();
    validate();
    fAddFactorDoubleSpinBox->setFocus();
    fAddFactorDoubleSpinBox->selectAll();
}

WYrexArithmeticDialog::~WYrexArithmeticDialog()
{
    dropPreview();
}

void WYrexArithmeticDialog::makeOperands()
{
    fSpecAGroupBox = new QGroupBox(tr("Spectrum A (Sample)"), this);
    fSpecAGroupBox->setObjectName("specAGroupBox");
    fFirstSpcLabel = new QLabel(tr("No Spectrum Selected"));
    fFirstSpcLabel->setObjectName("fFirstSpcLabel");
    fFirstSpcToolButton = new QToolButton;
    fFirstSpcToolButton->setObjectName("fFirstSpcToolButton");
    fFirstToOriginalCheckBox = new QCheckBox(tr("Reset A to Absolute Original Data"), fSpecAGroupBox);
    fFirstToOriginalCheckBox->setObjectName("fFirstToOriginalCheckBox");
    auto *ofA = new QVBoxLayout(fSpecAGroupBox);
    ofA->addLayout(operandRow(fSpecAGroupBox, fFirstSpcLabel, fFirstSpcToolButton));
    ofA->addWidget(fFirstToOriginalCheckBox);

    fSpecBGroupBox = new QGroupBox(tr("Spectrum B (Reference)"), this);
    fSpecBGroupBox->setObjectName("specBGroupBox");
    fSecondSpcLabel = new QLabel(tr("No Spectrum Selected"));
    fSecondSpcLabel->setObjectName("fSecondSpcLabel");
    fSecondSpcToolButton = new QToolButton;
    fSecondSpcToolButton->setObjectName("fSecondSpcToolButton");
    auto *ofB = new QVBoxLayout(fSpecBGroupBox);
    ofB->addLayout(operandRow(fSpecBGroupBox, fSecondSpcLabel, fSecondSpcToolButton));
}

void WYrexArithmeticDialog::makeFactor()
{
    fAddFactorGroupBox = new QGroupBox(this);
    fAddFactorGroupBox->setObjectName("addFactorGroupBox");
    auto *label = new QLabel(tr("k Factor:"), fAddFactorGroupBox);
    label->setObjectName("fAddFactorDoubleSpinBoxLabel");
    fAddFactorSlider = new QSlider(Qt::Horizontal, fAddFactorGroupBox);
    fAddFactorSlider->setObjectName("fAddFactorSlider");
    fAddFactorSlider->setRange(0, 100);
    fAddFactorSlider->setPageStep(1);
    fAddFactorSlider->setTickPosition(QSlider::TicksBelow);
    fAddFactorSlider->setTickInterval(5);
    fAddFactorDoubleSpinBox = new QDoubleSpinBox(fAddFactorGroupBox);
    fAddFactorDoubleSpinBox->setObjectName("fAddFactorDoubleSpinBox");
    fAddFactorDoubleSpinBox->setDecimals(3);
    fAddFactorDoubleSpinBox->setRange(-10.0, 10.0);
    fAddFactorDoubleSpinBox->setSingleStep(0.01);
    fAddFactorDoubleSpinBox->setValue(fFactor);
    fAddFactorSlider->setValue(sliderPosition(factor()));
    for (QWidget *widget :
         {static_cast<QWidget *>(fAddFactorSlider), static_cast<QWidget *>(fAddFactorDoubleSpinBox)}) {
        widget->setFocusPolicy(Qt::StrongFocus);
        widget->installEventFilter(this);
    }
    auto *row = new QHBoxLayout(fAddFactorGroupBox);
    row->addWidget(label);
    row->addWidget(fAddFactorSlider, 1);
    row->addWidget(fAddFactorDoubleSpinBox);
    fAddFactorGroupBox->setEnabled(false);
    connect(fAddFactorSlider, &QSlider::valueChanged, this, [this](int position) {
        const QSignalBlocker blocker(fAddFactorDoubleSpinBox);
        fAddFactorDoubleSpinBox->setValue(factorAt(position));
        if (fOk->isEnabled())
            updatePreview();
    });
    connect(fAddFactorDoubleSpinBox, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, [this](double factor) {
        const QSignalBlocker blocker(fAddFactorSlider);
        fAddFactorSlider->setValue(sliderPosition(factor));
        if (fOk->isEnabled())
            updatePreview();
    });
}

void WYrexArithmeticDialog::makeLayout()
{
    fTextLabel3 = new WProblemLabel(this);
    fTextLabel3->setObjectName("fTextLabel3");
    fPointByPointCheckBox = new QCheckBox(tr("Point by point all the same"), this);
    fPointByPointCheckBox->setObjectName("fPointByPointCheckBox");
    fButtonBox = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    fButtonBox->setObjectName("fButtonBox");
    fOk = fButtonBox->button(QDialogButtonBox::Ok);
    auto *layout = new QVBoxLayout(this);
    for (QWidget *widget : {static_cast<QWidget *>(fTextLabel1), static_cast<QWidget *>(fSpecAGroupBox),
                            static_cast<QWidget *>(fSpecBGroupBox), static_cast<QWidget *>(fAddFactorGroupBox),
                            static_cast<QWidget *>(fTextLabel3), static_cast<QWidget *>(fPointByPointCheckBox)})
        layout->addWidget(widget);
    layout->addStretch();
    layout->addWidget(fButtonBox);
    connect(fButtonBox, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(fButtonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

double WYrexArithmeticDialog::factor() const
{
    return fAddFactorDoubleSpinBox->value();
}

bool WYrexArithmeticDialog::isReset() const
{
    return fFirstToOriginalCheckBox->isChecked();
}

void WYrexArithmeticDialog::chooseFirst()
{
    TCanvasYrexSpectrum *first = fModel->itemAt(0);
    if (first && isOfOneSize(*first))
        fSpectrumA = first;
    chooseB();
}

/// The first that was measured alike.
void WYrexArithmeticDialog::chooseB()
{
    fSpectrumB = nullptr;
    const TYrexSpectrum *a = fSpectrumA ? fSpectrumA->currentSpectrum() : nullptr;
    if (!a)
        return;
    for (TCanvasYrexSpectrum *item : fModel->spectrumItems()) {
        const TYrexSpectrum *b = item->currentSpectrum();
        if (item != fSpectrumA && b && b->origXUnits() == a->origXUnits() && b->origYUnits() == a->origYUnits() &&
            b->pointCount() == a->pointCount()) {
            fSpectrumB = item;
            return;
        }
    }
}

void WYrexArithmeticDialog::pick(int mode)
{
    using WPicker = WYrexArithmeticSelectSpectrumDialog;
    dropPreview();
    WPicker picker(WPicker::TMode(mode), fModel, this);
    picker.selectItem(mode == WPicker::cSpectrumA ? fSpectrumA : fSpectrumB);
    if (picker.exec() == QDialog::Accepted) {
        (mode == WPicker::cSpectrumA ? fSpectrumA : fSpectrumB) = picker.selectedItem();
        if (mode == WPicker::cSpectrumA && !isReset())
            chooseB();
        fPointByPointCheckBox->setChecked(false); // said of the pair before
        showNames();
    }
    validate();
}

void WYrexArithmeticDialog::showNames()
{
    fFirstSpcLabel->setText(TYrexSpectrumListTableModel::nameOf(fSpectrumA));
    fSecondSpcLabel->setText(TYrexSpectrumListTableModel::nameOf(fSpectrumB));
    const TYrexSpectrumList spectra = fSpectrumA ? fSpectrumA->spectra() : TYrexSpectrumList();
    fFirstToOriginalCheckBox->setEnabled(std::any_of(
        spectra.begin(), spectra.end(), [](const TYrexSpectrum *spectrum) { return spectrum->orgDataModified(); }));
}

QString WYrexArithmeticDialog::problemOfA() const
{
    if (!fSpectrumA)
        return QString();
    if (fSpectrumA->isStacked() && !isOfOneSize(*fSpectrumA))
        return tr("\nError: All spectra in array A must have the same size.");
    const TYrexSpectrumList &spectra = fSpectrumA->spectra();
    if (std::any_of(spectra.begin(), spectra.end(),
                    [](const TYrexSpectrum *spectrum) { return spectrum->procParams().isAnyApplied(); }))
        return tr("\nError: A spectrum/spectra must have no processing actions applied.");
    return QString();
}

QString WYrexArithmeticDialog::problemOfPair() const
{
    const TYrexSpectrum *a = fSpectrumA->currentSpectrum();
    const TYrexSpectrum *b = fSpectrumB->currentSpectrum();
    if (!a || !b)
        return tr("At least two spectra must be selected.");
    QString problem;
    if (fSpectrumB->isStacked())
        problem += tr("\nError: Spectrum B cannot be arrayed.");
    if (a->pointCount() != b->pointCount())
        problem += tr("\nError: Different number of spectral points in A and B.");
    if (a->xUnits() != b->xUnits())
        problem += tr("\nError: Different horizontal units in A and B.");
    if (a->yUnits() != b->yUnits())
        problem += tr("\nError: Different vertical units in A and B.");
    return problem.isEmpty() ? problem : problem + tr("\n\nArithmetic operation cannot be performed.");
}

/// How the x of the spectra of A that are in use differ from those of B.
QString WYrexArithmeticDialog::axisDifference() const
{
    QVector<TYrexAxis> axes;
    for (const int index : fSpectrumA->stack().selectedIndices(false, true))
        axes.append(TYrexAxis(*fSpectrumA->stack().at(index)));
    return TYrexAxis::difference(axes, TYrexAxis(*fSpectrumB->currentSpectrum()));
}

/// A and B are there. Different x need the user's word.
void WYrexArithmeticDialog::judgePair()
{
    QString message = problemOfPair();
    const QString difference = message.isEmpty() ? axisDifference() : QString();
    const bool isUsable = message.isEmpty() && (difference.isEmpty() || fPointByPointCheckBox->isChecked());
    if (!difference.isEmpty())
        message = '\n' + difference.left(1).toUpper() + difference.mid(1) + '.';
    setVerdict(message, isUsable, isUsable);
    fPointByPointCheckBox->setVisible(!difference.isEmpty());
    if (isUsable) {
        fPreviewPoints = fSpectrumA->currentSpectrum()->pointCount();
        updatePreview();
    } else {
        dropPreview();
    }
}

void WYrexArithmeticDialog::setVerdict(const QString &message, bool factorUsable, bool acceptable)
{
    fTextLabel3->setText(message);
    fTextLabel3->setVisible(!message.isEmpty());
    fAddFactorGroupBox->setEnabled(factorUsable);
    fOk->setEnabled(acceptable);
}

void WYrexArithmeticDialog::validate()
{
    const QString ofA = problemOfA();
    const bool isPair = ofA.isEmpty() && fSpectrumA && fSpectrumB && !isReset();
    if (!isPair)
        fPointByPointCheckBox->hide(); // of a pair it stays: a moment without it would give the focus to OK
    if (!ofA.isEmpty()) {
        setVerdict(ofA, false, false);
    } else if (isPair) {
        judgePair();
    } else if (fSpectrumA && !fFirstToOriginalCheckBox->isHidden() && isReset()) {
        prepareReset();
    } else {
        setVerdict(tr("At least two spectra must be selected."), false, false);
    }
}

void WYrexArithmeticDialog::prepareReset()
{
    dropPreview();
    for (QWidget *widget : {static_cast<QWidget *>(fTextLabel1), static_cast<QWidget *>(fFirstSpcToolButton),
                            static_cast<QWidget *>(fSpecBGroupBox), static_cast<QWidget *>(fAddFactorGroupBox)})
        widget->hide();
    fFirstToOriginalCheckBox->setEnabled(false); // the choice stands
    fSpectrumB = nullptr;
    setVerdict(tr("The A spectrum will be set to its absolute original data\neffectively cancelling any applied "
                  "arithmetic operation.\nAfterwards, its defined processing actions will be performed."),
               fAddFactorGroupBox->isEnabled(), true);
}

void WYrexArithmeticDialog::updatePreview()
{
    TYrexSpectrum *a = fSpectrumA ? fSpectrumA->currentSpectrum() : nullptr;
    const TYrexSpectrum *b = fSpectrumB ? fSpectrumB->currentSpectrum() : nullptr;
    if (!a || !b)
        return;
    const double k = factor();
    const int count = std::min({fPreviewPoints, a->values().size(), b->values().size()});
    if (std::fabs(k) < std::numeric_limits<double>::epsilon() || count <= 0) {
        dropPreview();
        return;
    }
    fIsPreviewing = true;
    a->allocPreview(count);
    std::copy_n(a->values().constData(), count, a->preview());
    TCmdYrexArithmeticOp::addMultiple(count, -k, b->values().constData(), a->preview());
    fSpectrumA->update();
}

void WYrexArithmeticDialog::dropPreview()
{
    TYrexSpectrum *a = fSpectrumA ? fSpectrumA->currentSpectrum() : nullptr;
    if (!a || !fIsPreviewing) // one that was there before is that of a baseline
        return;
    fIsPreviewing = false;
    a->freePreview();
    fSpectrumA->update();
}

void WYrexArithmeticDialog::done(int result)
{
    dropPreview();
    QDialog::done(result);
}

void WYrexArithmeticDialog::showEvent(QShowEvent *event)
{
    if (!fIsPlaced && fKeepClear.isValid()) {
        const QScreen *screen = QGuiApplication::screenAt(fKeepClear.center());
        if (!screen)
            screen = QGuiApplication::primaryScreen();
        adjustSize();
        move(placeBeside(fKeepClear, size(), screen->availableGeometry()));
    }
    fIsPlaced = true;
    QDialog::showEvent(event);
}

/// The wheel turns k only in the field that has the focus; over the others it would change k by accident.
bool WYrexArithmeticDialog::eventFilter(QObject *watched, QEvent *event)
{
    const auto *widget = qobject_cast<QWidget *>(watched);
    if (event->type() == QEvent::Wheel && widget && !widget->hasFocus()) {
        event->ignore();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}
