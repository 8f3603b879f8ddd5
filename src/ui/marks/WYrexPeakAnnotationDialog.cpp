#include "WYrexPeakAnnotationDialog.h"

#include "plot/TTypesetter.h"

#include <QCompleter>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

constexpr int cPreviewHeight = 30; // pixels
constexpr int cPreviewWidth = 300;

} // namespace

WYrexPeakAnnotationDialog::WYrexPeakAnnotationDialog(const QString &peak, const QString &prefix,
                                                     const QString &annotation, const QStringList &known,
                                                     QWidget *parent)
    : QDialog(parent)
    , fPrefix(prefix)
    , fLine(new QLineEdit(annotation, this))
    , fPreview(new QLabel(this))
{
    setObjectName("WYrexPeakAnnotationDialog");
    setWindowTitle(tr("Annotate Peak"));
    auto *place = new QLabel(peak, this);
    place->setObjectName("peakLabel");
    fLine->setObjectName("annotationLineEdit");
    fLine->setAccessibleName(tr("Annotation"));
    fLine->setToolTip(
        tr("What the peak stands for. _ lowers digits, a sign, or what stands in braces; ^ raises them."));
    fLine->setClearButtonEnabled(true);
    auto *completer = new QCompleter(known, this);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    completer->setFilterMode(Qt::MatchContains);
    fLine->setCompleter(completer);
    fPreview->setObjectName("previewLabel");
    fPreview->setAccessibleName(tr("Preview"));
    auto *label = new QLabel(tr("&Annotation"), this);
    label->setBuddy(fLine);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *column = new QVBoxLayout(this);
    column->addWidget(place);
    column->addWidget(label);
    column->addWidget(fLine);
    column->addWidget(makePalette());
    column->addWidget(fPreview);
    column->addWidget(buttons);
    connect(fLine, &QLineEdit::textChanged, this, &WYrexPeakAnnotationDialog::drawPreview);
    drawPreview();
    fLine->setFocus();
    fLine->selectAll();
}

/// Signs that stand on few keyboards.
QWidget *WYrexPeakAnnotationDialog::makePalette()
{
    struct TSign
    {
        QString fText;
        QString fName;
    };
    const TSign cSigns[] = {
        {QString(QChar(0x03BD)), tr("nu: stretching")},
        {QString(QChar(0x03B4)), tr("delta: bending in plane")},
        {QString(QChar(0x03B3)), tr("gamma: bending out of plane")},
        {QString(QChar(0x2032)), tr("Prime")},
        {QString(QChar(0x2190)), tr("Arrow to the left")},
        {QString(QChar(0x2192)), tr("Arrow to the right")},
        {QStringLiteral("^"), tr("Superscript: raises what follows")},
        {QStringLiteral("_"), tr("Subscript: lowers the digits, the sign or the braces that follow")}};
    auto *palette = new QWidget(this);
    auto *row = new QHBoxLayout(palette);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2);
    for (const TSign &sign : cSigns) {
        auto *button = new QToolButton(palette);
        button->setText(sign.fText);
        button->setToolTip(sign.fName);
        button->setAccessibleName(sign.fName);
        button->setFocusPolicy(Qt::TabFocus); // the line keeps its cursor
        connect(button, &QToolButton::clicked, this, [this, text = sign.fText] {
            fLine->insert(text);
            fLine->setFocus();
        });
        row->addWidget(button);
    }
    row->addStretch();
    return palette;
}

QString WYrexPeakAnnotationDialog::annotation() const
{
    return fLine->text().trimmed();
}

/// Dark on white, as on paper.
void WYrexPeakAnnotationDialog::drawPreview()
{
    const double ratio = devicePixelRatioF();
    QPixmap picture(QSize(cPreviewWidth, cPreviewHeight) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    QFont shown = font();
    shown.setPixelSize(cPreviewHeight / 2);
    painter.setPen(QColor(0x20, 0x24, 0x2A));
    TTypesetter(shown).draw(painter, QRectF(6, 0, cPreviewWidth - 12, cPreviewHeight), Qt::AlignLeft,
                            fPrefix + annotation());
    painter.end();
    fPreview->setPixmap(picture);
}
