#include "WExportPictureDialog.h"

#include "TPictureSettings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QTimer>
#include <algorithm>

namespace {

constexpr double cMmPerInch = 25.4;
constexpr double cSmallest = 5.0; // mm
constexpr double cLargest = 2000.0;
constexpr int cPreviewWidth = 420; // logical pixels
constexpr int cPreviewHeight = 300;
constexpr int cPreviewDelay = 150; // ms
constexpr int cCheckSize = 8;      // of the pattern behind transparent pictures

void fillChecks(QPainter &painter, const QRect &rect)
{
    for (int y = rect.top(); y <= rect.bottom(); y += cCheckSize) {
        for (int x = rect.left(); x <= rect.right(); x += cCheckSize) {
            const bool isDark = ((x - rect.left()) / cCheckSize + (y - rect.top()) / cCheckSize) % 2;
            painter.fillRect(QRect(x, y, cCheckSize, cCheckSize) & rect, isDark ? QColor(0xD8, 0xD8, 0xD8) : Qt::white);
        }
    }
}

} // namespace

WExportPictureDialog::WExportPictureDialog(const TMakePictures &makePictures, bool hasItem, QWidget *parent)
    : QDialog(parent)
    , fMakePictures(makePictures)
    , fWhat(new QComboBox(this))
    , fForm(new QComboBox(this))
    , fWidth(new QDoubleSpinBox(this))
    , fHeight(new QDoubleSpinBox(this))
    , fUnit(new QComboBox(this))
    , fResolution(new QSpinBox(this))
    , fBackground(new QComboBox(this))
    , fTextAsText(new QCheckBox(tr("&Text as text"), this))
    , fName(new QLineEdit(this))
    , fPreview(new QLabel(this))
    , fFacts(new QLabel(this))
    , fTimer(new QTimer(this))
{
    setWindowTitle(tr("Export Picture"));
    setObjectName("exportPictureDialog");
    makeControls(hasItem);
    layOut();
    restore();
    fTimer->setSingleShot(true);
    connect(fTimer, &QTimer::timeout, this, &WExportPictureDialog::showPreview);
    const auto changed = QOverload<int>::of(&QComboBox::currentIndexChanged);
    const auto edited = QOverload<double>::of(&QDoubleSpinBox::valueChanged);
    connect(fWhat, changed, this, &WExportPictureDialog::takeOwnSize);
    connect(fForm, changed, this, &WExportPictureDialog::updateControls);
    connect(fUnit, changed, this, &WExportPictureDialog::changeUnit);
    connect(fBackground, changed, this, &WExportPictureDialog::updateControls);
    connect(fWidth, edited, this, [this] { changeSide(fWidth); });
    connect(fHeight, edited, this, [this] { changeSide(fHeight); });
    connect(fResolution, QOverload<int>::of(&QSpinBox::valueChanged), this, [this] {
        if (fUnit->currentIndex() == cPixels) { // the pixels stay, the millimetres follow
            fSizeMm = QSizeF(fWidth->value(), fHeight->value()) / unitsPerMm();
        }
        updateControls();
    });
    takeOwnSize();
}

void WExportPictureDialog::makeControls(bool hasItem)
{
    if (hasItem)
        fWhat->addItem(tr("Item"), TPictureRequest::cItem);
    fWhat->addItem(tr("Page"), TPictureRequest::cPage);
    fWhat->addItem(tr("All pages"), TPictureRequest::cAllPages);
    fForm->addItem("PNG", TPictureExporter::cPng);
    fForm->addItem("SVG", TPictureExporter::cSvg);
    fForm->addItem("PDF", TPictureExporter::cPdf);
    fUnit->addItems({tr("mm"), tr("px")});
    fResolution->setRange(TPictureSettings::cLowestDpi, TPictureSettings::cHighestDpi);
    fResolution->setSuffix(tr(" dpi"));
    fBackground->addItem(tr("White"), TPictureExporter::cWhite);
    fBackground->addItem(tr("Transparent"), TPictureExporter::cTransparent);
    fBackground->addItem(tr("As shown"), TPictureExporter::cAsShown);
    fTextAsText->setToolTip(tr("Off: letters become outlines, for readers without the font"));
    fName->setToolTip(tr("For several pages {Number} and {Title} stand for those of each"));
    fPreview->setFixedSize(cPreviewWidth, cPreviewHeight);
    fPreview->setAlignment(Qt::AlignCenter);
    fWhat->setObjectName("whatComboBox");
    fForm->setObjectName("formComboBox");
    fWidth->setObjectName("widthDoubleSpinBox");
    fHeight->setObjectName("heightDoubleSpinBox");
    fUnit->setObjectName("unitComboBox");
    fResolution->setObjectName("resolutionSpinBox");
    fBackground->setObjectName("backgroundComboBox");
    fTextAsText->setObjectName("textAsTextCheckBox");
    fName->setObjectName("nameLineEdit");
    fPreview->setObjectName("previewLabel");
}

void WExportPictureDialog::layOut()
{
    auto *size = new QHBoxLayout;
    size->addWidget(fWidth, 1);
    size->addWidget(new QLabel("x", this));
    size->addWidget(fHeight, 1);
    size->addWidget(fUnit);
    auto *sizeLabel = new QLabel(tr("&Size"), this);
    sizeLabel->setBuddy(fWidth);
    auto *fields = new QFormLayout;
    fields->addRow(tr("&What"), fWhat);
    fields->addRow(tr("&Form"), fForm);
    fields->addRow(sizeLabel, size);
    fields->addRow(tr("&Resolution"), fResolution);
    fields->addRow(tr("&Background"), fBackground);
    fields->addRow(fTextAsText);
    fields->addRow(tr("&Name"), fName);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    buttons->addButton(tr("&Export..."), QDialogButtonBox::AcceptRole)->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &WExportPictureDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(fields);
    layout->addWidget(fPreview, 1, Qt::AlignCenter);
    layout->addWidget(fFacts);
    layout->addWidget(buttons);
}

void WExportPictureDialog::restore()
{
    const TPictureSettings settings = TPictureSettings::load();
    fForm->setCurrentIndex(fForm->findData(settings.fForm));
    fResolution->setValue(settings.fDpi);
    fBackground->setCurrentIndex(fBackground->findData(settings.fBackground));
    fTextAsText->setChecked(settings.fTextAsText);
    for (QComboBox *box : {fForm, fBackground})
        box->setCurrentIndex(std::max(0, box->currentIndex()));
}

void WExportPictureDialog::accept()
{
    TPictureSettings settings;
    settings.fForm = form();
    settings.fDpi = fResolution->value();
    settings.fBackground = fBackground->currentData().toInt();
    settings.fTextAsText = fTextAsText->isChecked();
    settings.save();
    QDialog::accept();
}

double WExportPictureDialog::unitsPerMm() const
{
    return fUnit->currentIndex() == cPixels ? fResolution->value() / cMmPerInch : 1.0;
}

TPictureRequest::TWhat WExportPictureDialog::what() const
{
    return TPictureRequest::TWhat(fWhat->currentData().toInt());
}

TPictureExporter::TForm WExportPictureDialog::form() const
{
    return TPictureExporter::TForm(fForm->currentData().toInt());
}

TPictureRequest WExportPictureDialog::request() const
{
    TPictureRequest request;
    request.fWhat = what();
    request.fForm = form();
    if (what() != TPictureRequest::cAllPages) // pages differ, so each has its own size
        request.fSizeMm = fSizeMm;
    request.fDpi = fResolution->value();
    request.fBackground = TPictureExporter::TBackground(fBackground->currentData().toInt());
    request.fTextAsText = fTextAsText->isChecked();
    return request;
}

QString WExportPictureDialog::name() const
{
    return fName->text();
}

void WExportPictureDialog::setName(const QString &name)
{
    fName->setText(name);
}

void WExportPictureDialog::takeOwnSize()
{
    TPictureRequest request;
    request.fWhat = what();
    const QList<TPictureExporter> pictures = fMakePictures(request);
    if (!pictures.isEmpty())
        fSizeMm = pictures.first().sizeMm();
    changeUnit();
}

void WExportPictureDialog::changeUnit()
{
    const double factor = unitsPerMm();
    for (QDoubleSpinBox *box : {fWidth, fHeight}) {
        const QSignalBlocker blocker(box);
        box->setDecimals(fUnit->currentIndex() == cPixels ? 0 : 1);
        box->setRange(cSmallest * factor, cLargest * factor);
        box->setValue((box == fWidth ? fSizeMm.width() : fSizeMm.height()) * factor);
    }
    updateControls();
}

/// An item is laid out in any shape; of what is only scaled the other side follows, so that nothing is left free.
void WExportPictureDialog::changeSide(QDoubleSpinBox *changed)
{
    const double mm = changed->value() / unitsPerMm();
    double &side = changed == fWidth ? fSizeMm.rwidth() : fSizeMm.rheight();
    double &otherSide = changed == fWidth ? fSizeMm.rheight() : fSizeMm.rwidth();
    if (what() != TPictureRequest::cItem) {
        otherSide *= mm / side;
        QDoubleSpinBox *other = changed == fWidth ? fHeight : fWidth;
        const QSignalBlocker blocker(other);
        other->setValue(otherSide * unitsPerMm());
    }
    side = mm;
    updateControls();
}

void WExportPictureDialog::updateControls()
{
    const bool isOneSize = what() != TPictureRequest::cAllPages;
    for (QWidget *field : {static_cast<QWidget *>(fWidth), static_cast<QWidget *>(fHeight)})
        field->setEnabled(isOneSize);
    fTextAsText->setEnabled(form() != TPictureExporter::cPng);
    fTimer->start(cPreviewDelay);
}

void WExportPictureDialog::showPreview()
{
    QList<TPictureExporter> pictures = fMakePictures(request());
    if (pictures.isEmpty())
        return;
    TPictureExporter &picture = pictures.first();
    const QSizeF mm = picture.sizeMm();
    const QSize pixels = picture.pixels();
    const double ratio = devicePixelRatioF();
    const double dpi = std::min(cPreviewWidth / mm.width(), cPreviewHeight / mm.height()) * cMmPerInch * ratio;
    picture.setResolution(dpi);
    const QImage image = picture.image();
    QPixmap shown(image.size());
    QPainter painter(&shown);
    fillChecks(painter, shown.rect());
    painter.drawImage(0, 0, image);
    painter.end();
    shown.setDevicePixelRatio(ratio);
    fPreview->setPixmap(shown);
    QString facts = tr("%1 x %2 mm").arg(mm.width(), 0, 'f', 1).arg(mm.height(), 0, 'f', 1);
    if (form() == TPictureExporter::cPng)
        facts += tr(", %1 x %2 pixels").arg(pixels.width()).arg(pixels.height());
    if (pictures.size() > 1)
        facts += tr(", the first of %n picture(s)", nullptr, pictures.size());
    fFacts->setText(facts);
}
