#include "WAxisLimitsDialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <cmath>

WAxisLimitsDialog::WAxisLimitsDialog(const QString &axisTitle, const TRange &shown, int decimals, QWidget *parent)
    : QDialog(parent)
    , fFrom(new QLineEdit(QString::number(shown.a, 'f', decimals), this))
    , fTo(new QLineEdit(QString::number(shown.b, 'f', decimals), this))
    , fProblem(new QLabel(this))
{
    setWindowTitle(tr("Axis Limits"));
    fFrom->setObjectName("from");
    fTo->setObjectName("to");
    auto *form = new QFormLayout(this);
    if (!axisTitle.isEmpty())
        form->addRow(new QLabel(QString(axisTitle).remove('^').remove('_'), this));
    form->addRow(tr("&From"), fFrom);
    form->addRow(tr("&To"), fTo);
    form->addRow(fProblem);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    fOk = buttons->button(QDialogButtonBox::Ok);
    form->addRow(buttons);
    QFont italic = fProblem->font();
    italic.setItalic(true);
    fProblem->setFont(italic);
    QPalette red = fProblem->palette();
    red.setColor(QPalette::WindowText, QColor(0xD0, 0x02, 0x1B));
    fProblem->setPalette(red);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(fFrom, &QLineEdit::textChanged, this, &WAxisLimitsDialog::check);
    connect(fTo, &QLineEdit::textChanged, this, &WAxisLimitsDialog::check);
    fFrom->setFocus();
    fFrom->selectAll();
}

bool WAxisLimitsDialog::read(const QLineEdit &line, double &value) const
{
    bool isNumber = false;
    value = line.text().trimmed().replace(',', '.').replace(QChar(0x2212), '-').toDouble(&isNumber);
    return isNumber && std::isfinite(value);
}

TRange WAxisLimitsDialog::limits() const
{
    double from = 0.0;
    double to = 0.0;
    return read(*fFrom, from) && read(*fTo, to) ? TRange(from, to) : TRange();
}

void WAxisLimitsDialog::check()
{
    double from = 0.0;
    double to = 0.0;
    QString problem;
    if (!read(*fFrom, from) || !read(*fTo, to))
        problem = tr("Both limits are numbers.");
    else if (from == to)
        problem = tr("The limits differ.");
    fProblem->setText(problem);
    fOk->setEnabled(problem.isEmpty());
}
