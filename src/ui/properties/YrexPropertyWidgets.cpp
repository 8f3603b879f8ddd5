#include "YrexPropertyWidgets.h"

#include "WYrexColorButton.h"
#include "YrexPropertyTable.h"
#include "widgets/TDoubleSpinBox.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QFontComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSlider>
#include <cmath>

namespace {

using TEdited = std::function<void(const QVariant &)>;
using TControl = TYrexPropertyControl;

constexpr int cNumberWidth = 96;
constexpr int cChoiceWidth = 130;
constexpr int cFamilyWidth = 170;
constexpr int cSliderWidth = 160;

QString various()
{
    return QCoreApplication::translate("YrexProperties", "(various)");
}

/// The shortest number that is shown so, so that 0.3 is stored for 30 %.
double storedNumber(const TControl &control, double shown)
{
    if (control.fScale == 1.0)
        return shown;
    if (*control.fLowestText && shown <= control.fLowest)
        return control.fLowest / control.fScale;
    const double inverse = std::round(1.0 / control.fScale);
    return inverse >= 2.0 ? shown * inverse : shown / control.fScale;
}

TYrexPropertyWidget makeCheck(const TControl &control, const TEdited &edited, QWidget *parent)
{
    auto *box = new QCheckBox(yrexPropertyText(control.fText), parent);
    QObject::connect(box, &QCheckBox::clicked, box, [box, edited] {
        box->setTristate(false); // a mixed box becomes a plain one
        edited(box->isChecked());
    });
    return {box, [box](const QVariant &value, bool mixed) {
                box->setTristate(mixed);
                box->setCheckState(mixed ? Qt::PartiallyChecked : value.toBool() ? Qt::Checked : Qt::Unchecked);
            }};
}

TDoubleSpinBox *makeSpin(const TControl &control, QWidget *parent)
{
    auto *spin = new TDoubleSpinBox(parent);
    spin->setDecimals(control.fDecimals);
    spin->setRange(control.fLowest, control.fHighest);
    spin->setSingleStep(control.fStep);
    spin->setSuffix(yrexPropertyText(control.fText));
    spin->setKeyboardTracking(false); // a number that is being typed is none yet
    spin->setFixedWidth(cNumberWidth);
    const auto shown = [spin](double value) { return spin->textFromValue(value) + spin->suffix(); };
    if (control.fHighest < 1e6)
        spin->setToolTip(QCoreApplication::translate("YrexProperties", "%1 to %2")
                             .arg(*control.fLowestText ? yrexPropertyText(control.fLowestText) : shown(control.fLowest),
                                  shown(control.fHighest)));
    return spin;
}

/// Several numbers that differ stand a step below the range.
void showNumber(TDoubleSpinBox *spin, const TControl &control, const QVariant &value, bool mixed)
{
    const QSignalBlocker blocker(spin);
    spin->setMinimum(mixed ? control.fLowest - control.fStep : control.fLowest);
    spin->setSpecialValueText(mixed ? various() : yrexPropertyText(control.fLowestText));
    spin->setValue(mixed ? spin->minimum() : value.toDouble() * control.fScale);
}

TYrexPropertyWidget makeNumber(const TControl &control, const TEdited &edited, QWidget *parent)
{
    TDoubleSpinBox *spin = makeSpin(control, parent);
    QObject::connect(spin, QOverload<double>::of(&QDoubleSpinBox::valueChanged), spin, [control, edited](double shown) {
        if (shown >= control.fLowest)
            edited(storedNumber(control, shown));
    });
    return {spin, [spin, control](const QVariant &value, bool mixed) { showNumber(spin, control, value, mixed); }};
}

TYrexPropertyWidget makePercent(const TControl &control, const TEdited &edited, QWidget *parent)
{
    auto *both = new QWidget(parent);
    auto *slider = new QSlider(Qt::Horizontal, both);
    TDoubleSpinBox *spin = makeSpin(control, both);
    spin->setObjectName(control.fKey + ".number");
    slider->setObjectName(control.fKey + ".slider");
    slider->setRange(int(control.fLowest), int(control.fHighest));
    slider->setFixedWidth(cSliderWidth);
    auto *layout = new QHBoxLayout(both);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(slider);
    layout->addWidget(spin);
    both->setFocusProxy(spin);
    QObject::connect(slider, &QSlider::valueChanged, spin, &QDoubleSpinBox::setValue);
    QObject::connect(spin, QOverload<double>::of(&QDoubleSpinBox::valueChanged), both,
                     [slider, control, edited](double shown) {
                         if (shown < control.fLowest)
                             return;
                         const QSignalBlocker blocker(slider);
                         slider->setValue(qRound(shown));
                         edited(storedNumber(control, shown));
                     });
    return {both, [slider, spin, control](const QVariant &value, bool mixed) {
                const QSignalBlocker blocker(slider);
                slider->setValue(qRound(value.toDouble() * control.fScale));
                showNumber(spin, control, value, mixed);
            }};
}

TYrexPropertyWidget makeColor(const TControl &, const TEdited &edited, QWidget *parent)
{
    auto *button = new WYrexColorButton(parent);
    QObject::connect(button, &WYrexColorButton::chosen, button, [edited](const QColor &color) { edited(color); });
    return {button, [button](const QVariant &value, bool mixed) {
                button->setColor(mixed ? QColor() : value.value<QColor>());
            }};
}

TYrexPropertyWidget makeChoice(const TControl &control, const TEdited &edited, QWidget *parent)
{
    auto *box = new QComboBox(parent);
    for (const QPair<int, const char *> &choice : control.fChoices)
        box->addItem(yrexPropertyText(choice.second), choice.first);
    box->setMinimumWidth(cChoiceWidth);
    box->setFocusPolicy(Qt::StrongFocus);
    QObject::connect(box, QOverload<int>::of(&QComboBox::activated), box,
                     [box, edited](int index) { edited(box->itemData(index).toInt()); });
    return {box, [box](const QVariant &value, bool mixed) {
                box->setPlaceholderText(mixed ? various() : value.toString());
                box->setCurrentIndex(mixed ? -1 : box->findData(value.toInt()));
            }};
}

TYrexPropertyWidget makeFamily(const TControl &, const TEdited &edited, QWidget *parent)
{
    auto *box = new QFontComboBox(parent);
    box->setFixedWidth(cFamilyWidth);
    box->setEditable(false);
    box->setFocusPolicy(Qt::StrongFocus);
    QObject::connect(box, QOverload<int>::of(&QComboBox::activated), box,
                     [box, edited](int index) { edited(box->itemText(index)); });
    return {box, [box](const QVariant &value, bool mixed) {
                const QSignalBlocker blocker(box);
                box->setPlaceholderText(mixed ? various() : value.toString());
                box->setCurrentIndex(mixed ? -1 : box->findText(value.toString(), Qt::MatchFixedString));
            }};
}

TYrexPropertyWidget makeText(const TControl &, const TEdited &edited, QWidget *parent)
{
    auto *line = new QLineEdit(parent);
    line->setMinimumWidth(2 * cNumberWidth);
    QObject::connect(line, &QLineEdit::textEdited, line, [edited](const QString &text) { edited(text); });
    return {line, [line](const QVariant &value, bool mixed) {
                line->setPlaceholderText(mixed ? various() : QString());
                const QString text = mixed ? QString() : value.toString();
                if (line->text() != text)
                    line->setText(text); // which would take the cursor to the end
            }};
}

} // namespace

TYrexPropertyWidget makeYrexPropertyWidget(const TYrexPropertyControl &control, const TEdited &edited, QWidget *parent)
{
    static const QHash<int, TYrexPropertyWidget (*)(const TControl &, const TEdited &, QWidget *)> cMakers = {
        {TControl::check, makeCheck}, {TControl::number, makeNumber},   {TControl::percent, makePercent},
        {TControl::color, makeColor}, {TControl::choice, makeChoice},   {TControl::family, makeFamily},
        {TControl::text, makeText},   {TControl::titleFormat, makeText}};
    const auto make = cMakers.value(control.fKind);
    TYrexPropertyWidget made = make ? make(control, edited, parent) : TYrexPropertyWidget{};
    if (made.fWidget)
        made.fWidget->setObjectName(control.fKey);
    return made;
}
