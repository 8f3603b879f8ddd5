#include "widgets/TDoubleSpinBox.h"

#include "settings/TNumberFormat.h"

#include <QLineEdit>
#include <QRegularExpression>
#include <QWheelEvent>
#include <cmath>

namespace {

constexpr double cSlack = 1e-9; // relative, against the noise of powers of ten

/// The next (previous) of 1, 2, 5 times a power of ten.
double logStep(double value, bool up)
{
    const double power = std::pow(10.0, std::floor(std::log10(value) + cSlack));
    const double lead = value / power;
    if (up) {
        for (const double next : {2.0, 5.0, 10.0}) {
            if (lead < next * (1.0 - cSlack))
                return next * power;
        }
        return 20.0 * power;
    }
    for (const double next : {5.0, 2.0, 1.0}) {
        if (lead > next * (1.0 + cSlack))
            return next * power;
    }
    return power / 2.0;
}

} // namespace

TDoubleSpinBox::TDoubleSpinBox(QWidget *parent)
    : QDoubleSpinBox(parent)
{
    setFocusPolicy(Qt::StrongFocus); // not by the wheel
    setLocale(TNumberFormat::locale());
    setCorrectionMode(QAbstractSpinBox::CorrectToNearestValue);
}

void TDoubleSpinBox::setFixedDecimals(bool fixed)
{
    fFixed = fixed;
    lineEdit()->setText(prefix() + textFromValue(value()) + suffix());
}

QString TDoubleSpinBox::textFromValue(double value) const
{
    QString plain = QString::number(value, 'f', decimals());
    if (!fFixed && plain.contains('.')) {
        while (plain.endsWith('0'))
            plain.chop(1);
        if (plain.endsWith('.'))
            plain.chop(1);
    }
    return TNumberFormat::shown(plain == QLatin1String("-0") ? QStringLiteral("0") : plain);
}

bool TDoubleSpinBox::read(const QString &text, double &value) const
{
    QString number = text;
    if (!prefix().isEmpty() && number.startsWith(prefix()))
        number.remove(0, prefix().size());
    if (!suffix().isEmpty() && number.endsWith(suffix()))
        number.chop(suffix().size());
    return TNumberFormat::read(number.trimmed(), value);
}

double TDoubleSpinBox::valueFromText(const QString &text) const
{
    double number = value();
    read(text, number);
    return number;
}

QValidator::State TDoubleSpinBox::validate(QString &text, int &) const
{
    double number = 0.0;
    if (!read(text, number)) {
        static const QRegularExpression cBegun(QStringLiteral("^[\\s\\d.,eE+\\-\u2212\u202f]*$"));
        QString rest = text;
        rest.remove(prefix()).remove(suffix());
        return cBegun.match(rest).hasMatch() ? QValidator::Intermediate : QValidator::Invalid;
    }
    return number >= minimum() && number <= maximum() ? QValidator::Acceptable : QValidator::Intermediate;
}

void TDoubleSpinBox::fixup(QString &text) const
{
    double number = 0.0;
    if (read(text, number))
        text = prefix() + textFromValue(qBound(minimum(), number, maximum())) + suffix();
}

void TDoubleSpinBox::stepBy(int steps)
{
    if (!fLogSteps || value() <= 0.0) {
        QDoubleSpinBox::stepBy(steps);
        return;
    }
    double stepped = value();
    for (int i = 0; i < std::abs(steps); ++i)
        stepped = logStep(stepped, steps > 0);
    setValue(stepped);
    selectAll();
}

void TDoubleSpinBox::wheelEvent(QWheelEvent *event)
{
    if (hasFocus())
        QDoubleSpinBox::wheelEvent(event);
    else
        event->ignore(); // what lies around scrolls
}
