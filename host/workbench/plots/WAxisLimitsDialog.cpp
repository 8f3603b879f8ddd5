#include "WAxisLimitsDialog.h"

#include "settings/TNumberFormat.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

WAxisLimitsDialog::WAxisLimitsDialog(const QString &axisTitle, const TRange &shown, int decimals, QWidget *parent)
    : QDialog(parent)
    , fFrom(new QLineEdit(TNumberFormat::fixed(shown.a, decimals), this))
    , fTo(new QLineEdit(TNumberFormat::fixed(shown.b, decimals), this))
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
    return TNumberFormat::read(line.text(), value);
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
