#include "WYrexStackOptionsDialog.h"

#include "plot/T1DStackedPlotProperties.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>
#include <QtMath>
#include <cmath>

namespace {

constexpr double cAngleStep = 5.0;
constexpr QSize cSketchSize(120, 72);
constexpr int cSketchRows = 4;

} // namespace

WYrexStackOptionsDialog::WYrexStackOptionsDialog(double angle, bool oneStackPerYUnit, bool hasStack, QWidget *parent)
    : QDialog(parent)
    , fAngle(new QDoubleSpinBox(this))
    , fOneStackPerYUnit(new QCheckBox(tr("One stack per &Y unit"), this))
    , fApply(new QCheckBox(tr("Apply to &Present Stack"), this))
    , fSketch(new QLabel(this))
{
    setObjectName("stackOptionsDialog");
    setWindowTitle(tr("Stack Options"));
    fAngle->setObjectName("angleDoubleSpinBox");
    fAngle->setRange(0.0, T1DStackedPlotProperties::cMaxAngle);
    fAngle->setSingleStep(cAngleStep);
    fAngle->setDecimals(1);
    fAngle->setSuffix(QString::fromUtf8("\u00b0"));
    fAngle->setValue(angle);
    fAngle->setAccessibleName(tr("Angle"));
    fAngle->setToolTip(tr("How far the rows of a stack step to the right: 0 to 75 degrees, at first 15."));
    fOneStackPerYUnit->setObjectName("oneStackPerYUnitCheckBox");
    fOneStackPerYUnit->setChecked(oneStackPerYUnit);
    fOneStackPerYUnit->setToolTip(tr("Spectra of different y units make a stack for each unit. Otherwise their "
                                     "intensities are arbitrary units."));
    fApply->setObjectName("applyCheckBox");
    fApply->setEnabled(hasStack);
    fApply->setToolTip(hasStack ? tr("The selected stack gets the angle, too.") : tr("Needs a selected stack."));
    fSketch->setAccessibleName(tr("Sketch"));
    auto *label = new QLabel(tr("&Angle"), this);
    label->setBuddy(fAngle);
    auto *row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(fAngle);
    row->addStretch();
    row->addWidget(fSketch);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *column = new QVBoxLayout(this);
    column->addLayout(row);
    column->addWidget(fOneStackPerYUnit);
    column->addWidget(fApply);
    column->addWidget(buttons);
    connect(fAngle, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, [this] { drawSketch(); });
    drawSketch();
    fAngle->setFocus();
    fAngle->selectAll();
}

double WYrexStackOptionsDialog::angle() const
{
    return fAngle->value();
}

bool WYrexStackOptionsDialog::oneStackPerYUnit() const
{
    return fOneStackPerYUnit->isChecked();
}

bool WYrexStackOptionsDialog::appliesToPresent() const
{
    return fApply->isChecked();
}

/// A few rows with the step that they would have.
void WYrexStackOptionsDialog::drawSketch()
{
    QPixmap picture(cSketchSize * devicePixelRatioF());
    picture.setDevicePixelRatio(devicePixelRatioF());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::WindowText), 1.2));
    const double pitch = cSketchSize.height() / double(cSketchRows + 1);
    const double step = std::min(pitch * std::tan(qDegreesToRadians(angle())),
                                 0.5 * cSketchSize.width() / (cSketchRows - 1)); // as the plot limits it
    const double width = cSketchSize.width() - step * (cSketchRows - 1) - 4.0;
    for (int row = cSketchRows - 1; row >= 0; --row) {
        QPolygonF curve;
        for (int i = 0; i <= 40; ++i) {
            const double away = (i - 20) / 3.0;
            curve.append(QPointF(2.0 + row * step + width * i / 40.0,
                                 cSketchSize.height() - 3.0 - row * pitch - 1.4 * pitch / (1.0 + away * away)));
        }
        painter.drawPolyline(curve);
    }
    fSketch->setPixmap(picture);
}
