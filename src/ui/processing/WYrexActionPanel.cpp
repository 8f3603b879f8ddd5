#include "WYrexActionPanel.h"

#include "TYrexProcParams.h"
#include "widgets/TDoubleSpinBox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QSlider>
#include <QSpinBox>
#include <QWheelEvent>
#include <cmath>

namespace {

constexpr double cSliderFactor = 100.0;
constexpr int cLeastLetters = 14; // of the texts of options

/// Passes the wheel on to what scrolls unless the control has the focus.
class TWheelGuard : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject *object, QEvent *event) override
    {
        const auto *control = qobject_cast<QWidget *>(object);
        if (event->type() != QEvent::Wheel || !control || control->hasFocus())
            return false;
        event->ignore();
        return true;
    }
};

/// Widths of windows are odd.
bool isOddOnly(const QSpinBox &box)
{
    return box.singleStep() == 2 && (box.minimum() & 1);
}

void guardWheel(QWidget *control)
{
    control->setFocusPolicy(Qt::StrongFocus);
    control->installEventFilter(new TWheelGuard(control));
}

} // namespace

WYrexActionPanel::WYrexActionPanel(const QString &objectName, int action, QWidget *parent)
    : QGroupBox(TYrexProcParams::label(action), parent)
    , fAction(action)
    , fForm(new QFormLayout(this))
{
    setObjectName(objectName);
    fForm->setRowWrapPolicy(QFormLayout::WrapLongRows);
    fForm->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
}

void WYrexActionPanel::load(const QVariantMap &map)
{
    fIsLoading = true;
    widenRanges();
    for (TBinding &binding : fBindings) {
        binding.fRaw = map.value(binding.fKey);
        if (binding.fRaw.isValid())
            showValue(binding.fControl, binding.fRaw);
        binding.fSeen = valueOf(binding.fControl);
    }
    loadOthers(map);
    couple();
    fIsLoading = false;
}

void WYrexActionPanel::store(QVariantMap &map)
{
    for (const TBinding &binding : qAsConst(fBindings)) {
        if (binding.fKey.isEmpty())
            continue;
        const QVariant value = valueOf(binding.fControl);
        const bool isUntouched = binding.fRaw.isValid() && value == binding.fSeen;
        if (value.isValid() || isUntouched)
            map.insert(binding.fKey, isUntouched ? binding.fRaw : value);
    }
}

void WYrexActionPanel::noteEdit(QWidget *control)
{
    if (fIsLoading)
        return;
    fIsLoading = true; // what follows from the edit is no edit of its own
    couple();
    fIsLoading = false;
    emit edited(control);
}

void WYrexActionPanel::setKey(const QWidget *control, const QString &key)
{
    for (TBinding &binding : fBindings) {
        if (binding.fControl != control || binding.fKey == key)
            continue;
        binding.fKey = key;
        binding.fRaw.clear();
    }
}

void WYrexActionPanel::addRow(QWidget *control, const QString &name, const QString &label, const QString &key,
                              const QString &toolTip)
{
    control->setObjectName(name);
    control->setToolTip(toolTip);
    if (label.isEmpty()) {
        fForm->addRow(control);
    } else {
        control->setAccessibleName(label);
        auto *text = new QLabel(label, this);
        text->setObjectName(name + "Label");
        text->setBuddy(control);
        text->setToolTip(toolTip);
        fForm->addRow(text, control);
    }
    if (!key.isEmpty())
        fBindings.append({control, key, QVariant(), QVariant()});
}

QComboBox *WYrexActionPanel::addCombo(const QString &name, const QString &label, const QString &key,
                                      const QVector<int> &options, const QString &toolTip)
{
    auto *combo = new QComboBox(this);
    for (const int option : options)
        combo->addItem(TYrexProcParams::label(option), option);
    guardWheel(combo);
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMinimumContentsLength(cLeastLetters);
    addRow(combo, name, label, key, toolTip);
    connect(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this, combo] { noteEdit(combo); });
    return combo;
}

TDoubleSpinBox *WYrexActionPanel::addNumber(const QString &name, const QString &label, const QString &key, double min,
                                            double max, double step, int decimals, const QString &toolTip)
{
    auto *box = new TDoubleSpinBox(this);
    box->setDecimals(decimals);
    box->setRange(min, max);
    box->setSingleStep(step);
    addRow(box, name, label, key, toolTip);
    if (!key.isEmpty())
        connect(box, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, [this, box] { noteEdit(box); });
    return box;
}

QSpinBox *WYrexActionPanel::addCount(const QString &name, const QString &label, const QString &key, int min, int max,
                                     int step, const QString &toolTip)
{
    auto *box = new QSpinBox(this);
    box->setRange(min, max);
    box->setSingleStep(step);
    guardWheel(box);
    addRow(box, name, label, key, toolTip);
    connect(box, QOverload<int>::of(&QSpinBox::valueChanged), this, [this, box] { noteEdit(box); });
    if (isOddOnly(*box)) // while it is typed a number may be even
        connect(box, &QSpinBox::editingFinished, this, [box] { box->setValue(box->value() | 1); });
    return box;
}

QCheckBox *WYrexActionPanel::addCheck(const QString &name, const QString &text, const QString &key,
                                      const QString &toolTip)
{
    auto *check = new QCheckBox(text, this);
    addRow(check, name, QString(), key, toolTip);
    check->setAccessibleName(text);
    connect(check, &QCheckBox::toggled, this, [this, check] { noteEdit(check); });
    return check;
}

QSlider *WYrexActionPanel::addSlider(const QString &name, TDoubleSpinBox *box, int min, int max)
{
    auto *slider = new QSlider(Qt::Horizontal, this);
    slider->setRange(min, max);
    slider->setPageStep(10);
    guardWheel(slider);
    addRow(slider, name, QString(), QString(), box->toolTip());
    slider->setAccessibleName(box->accessibleName());
    connect(slider, &QSlider::valueChanged, box, [box](int value) { box->setValue(value / cSliderFactor); });
    connect(box, QOverload<double>::of(&QDoubleSpinBox::valueChanged), slider, [slider](double value) {
        const QSignalBlocker blocker(slider); // the box may hold digits that the slider has not
        slider->setValue(qRound(value * cSliderFactor));
    });
    connect(slider, &QSlider::sliderPressed, this, [this] { emit held(true); });
    connect(slider, &QSlider::sliderReleased, this, [this] { emit held(false); });
    slider->setValue(qRound(box->value() * cSliderFactor));
    return slider;
}

QLabel *WYrexActionPanel::labelOf(QWidget *control) const
{
    return qobject_cast<QLabel *>(fForm->labelForField(control));
}

void WYrexActionPanel::setRowVisible(QWidget *control, bool isVisible)
{
    control->setVisible(isVisible);
    if (QLabel *label = labelOf(control))
        label->setVisible(isVisible);
}

void WYrexActionPanel::setRowEnabled(QWidget *control, bool isEnabled)
{
    control->setEnabled(isEnabled);
    if (QLabel *label = labelOf(control))
        label->setEnabled(isEnabled);
}

QVariant WYrexActionPanel::valueOf(const QWidget *control) const
{
    if (const auto *combo = qobject_cast<const QComboBox *>(control))
        return combo->currentData();
    if (const auto *box = qobject_cast<const QDoubleSpinBox *>(control))
        return box->value();
    if (const auto *box = qobject_cast<const QSpinBox *>(control))
        return isOddOnly(*box) ? box->value() | 1 : box->value();
    if (const auto *check = qobject_cast<const QCheckBox *>(control))
        return check->isChecked();
    return QVariant();
}

/// Boxes that show the value already are left alone: somebody may be typing there.
void WYrexActionPanel::showValue(QWidget *control, const QVariant &value)
{
    if (auto *combo = qobject_cast<QComboBox *>(control)) {
        combo->setCurrentIndex(combo->findData(value.toInt()));
    } else if (auto *number = qobject_cast<QDoubleSpinBox *>(control)) {
        const double rounded = number->value();
        if (qAbs(rounded - value.toDouble()) > 0.5 * std::pow(10.0, -number->decimals()) || number->text().isEmpty())
            number->setValue(value.toDouble());
    } else if (auto *count = qobject_cast<QSpinBox *>(control)) {
        if (count->value() != value.toInt())
            count->setValue(value.toInt());
    } else if (auto *check = qobject_cast<QCheckBox *>(control)) {
        check->setChecked(value.toBool());
    }
}
