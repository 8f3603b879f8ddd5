#include "WSettingsPages.h"

#include "TAutosave.h"
#include "TPictureSettings.h"
#include "TTheme.h"
#include "TUnitMemory.h"
#include "exchange/TItemsMime.h"
#include "exchange/TPictureExporter.h"
#include "settings/TDefaultsIni.h"
#include "settings/TNumberFormat.h"
#include "ui/PlotHabits.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <algorithm>

namespace {

template <typename TField>
TField *named(const char *name, TField *field)
{
    field->setObjectName(name);
    return field;
}

void choose(QComboBox *box, const QVariant &data)
{
    box->setCurrentIndex(std::max(0, box->findData(data)));
}

QString nameOf(const QList<TUnitChoice> &choices, int code)
{
    for (const TUnitChoice &choice : choices) {
        if (choice.fCode == code)
            return choice.fName;
    }
    return QString::number(code); // of a plug-in that is not there now
}

} // namespace

WGeneralPage::WGeneralPage(QWidget *parent)
    : WSettingsPage(parent)
    , fTheme(named("themeComboBox", new QComboBox(this)))
    , fSign(named("decimalSignComboBox", new QComboBox(this)))
    , fGroups(named("groupsCheckBox", new QCheckBox(tr("Digit &groups (12 345)"), this)))
    , fCopiedSign(named("copiedSignComboBox", new QComboBox(this)))
    , fMinutes(named("autosaveSpinBox", new QSpinBox(this)))
{
    fTheme->addItem(tr("As System"), TTheme::cSystem);
    fTheme->addItem(tr("Light"), TTheme::cLight);
    fTheme->addItem(tr("Dark"), TTheme::cDark);
    for (QComboBox *box : {fSign, fCopiedSign}) {
        box->addItem("1.5", ".");
        box->addItem("1,5", ",");
    }
    fMinutes->setRange(1, TAutosave::cMostMinutes);
    fMinutes->setSuffix(tr(" min"));
    fMinutes->setToolTip(tr("How long after a change that is not saved a copy is kept for a recovery"));
    const TDefaultsIni settings;
    choose(fTheme, TTheme::current());
    choose(fSign, QString(TNumberFormat::decimalSign()));
    fGroups->setChecked(TNumberFormat::hasGroups());
    choose(fCopiedSign, settings.value(TItemsMime::cDecimalSignKey, QString(".")));
    fMinutes->setValue(settings.value(TAutosave::cMinutesKey, TAutosave::cMinutes).toInt());
    auto *form = new QFormLayout(this);
    form->addRow(tr("&Theme"), fTheme);
    form->addRow(tr("&Numbers on the screen"), fSign);
    form->addRow(QString(), fGroups);
    form->addRow(tr("Numbers that are &copied"), fCopiedSign);
    form->addRow(tr("&Autosave after"), fMinutes);
}

void WGeneralPage::apply()
{
    const auto theme = TTheme::TKind(fTheme->currentData().toInt());
    if (theme != TTheme::current())
        TTheme::set(theme);
    TDefaultsIni settings;
    settings.setValue(TNumberFormat::cSignKey, fSign->currentData());
    settings.setValue(TNumberFormat::cGroupsKey, fGroups->isChecked());
    settings.setValue(TItemsMime::cDecimalSignKey, fCopiedSign->currentData());
    settings.setValue(TAutosave::cMinutesKey, fMinutes->value());
}

WPlotPage::WPlotPage(QWidget *parent)
    : WSettingsPage(parent)
    , fWheel(named("wheelComboBox", new QComboBox(this)))
    , fThreshold(named("boxThresholdDoubleSpinBox", new QDoubleSpinBox(this)))
    , fKeepFitting(named("keepFittingCheckBox", new QCheckBox(tr("New items &keep fitting their height"), this)))
{
    fWheel->addItem(tr("x (Ctrl: intensity)"), "x");
    fWheel->addItem(tr("intensity (Ctrl: x)"), "intensity");
    fThreshold->setRange(PlotHabits::cLowestBoxThreshold, PlotHabits::cHighestBoxThreshold);
    fThreshold->setDecimals(1);
    fThreshold->setSingleStep(0.5);
    fThreshold->setSuffix(tr(" % of the axis"));
    fThreshold->setToolTip(tr("A drag that is shorter along an axis leaves that axis as it is"));
    choose(fWheel, PlotHabits::isWheelIntensity() ? "intensity" : "x");
    fThreshold->setValue(PlotHabits::boxThreshold() * 100.0);
    fKeepFitting->setChecked(PlotHabits::newItemsKeepFitting());
    auto *form = new QFormLayout(this);
    form->addRow(tr("&Wheel zooms"), fWheel);
    form->addRow(tr("Zoom &box from"), fThreshold);
    form->addRow(fKeepFitting);
}

void WPlotPage::apply()
{
    TDefaultsIni settings;
    settings.setValue(PlotHabits::cWheelKey, fWheel->currentData());
    settings.setValue(PlotHabits::cBoxThresholdKey, fThreshold->value());
    settings.setValue(PlotHabits::cKeepFittingKey, fKeepFitting->isChecked());
}

WImportPage::WImportPage(const QList<TUnitChoice> &x, const QList<TUnitChoice> &y, QWidget *parent)
    : WSettingsPage(parent)
    , fPairs(named("unitPairsTable", new QTableWidget(0, 3, this)))
    , fRemove(named("removeButton", new QPushButton(tr("&Remove"), this)))
{
    fPairs->setHorizontalHeaderLabels({tr("Files"), tr("Horizontal"), tr("Vertical")});
    fPairs->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    fPairs->verticalHeader()->hide();
    fPairs->setEditTriggers(QAbstractItemView::NoEditTriggers);
    fPairs->setSelectionBehavior(QAbstractItemView::SelectRows);
    for (const QString &ending : TUnitMemory::endings()) {
        TUnitPair units;
        if (!TUnitMemory::find(ending, units))
            continue;
        const int row = fPairs->rowCount();
        fPairs->insertRow(row);
        auto *name = new QTableWidgetItem("*." + ending);
        name->setData(Qt::UserRole, ending);
        fPairs->setItem(row, 0, name);
        fPairs->setItem(row, 1, new QTableWidgetItem(nameOf(x, units.fX)));
        fPairs->setItem(row, 2, new QTableWidgetItem(nameOf(y, units.fY)));
    }
    auto *text = new QLabel(tr("Files of these kinds do not say their units. They get those that were chosen once with "
                               "\"Same for this kind of file\"."),
                            this);
    text->setWordWrap(true);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(text);
    layout->addWidget(fPairs, 1);
    layout->addWidget(fRemove, 0, Qt::AlignRight);
    const auto follow = [this] { fRemove->setEnabled(!fPairs->selectedItems().isEmpty()); };
    connect(fPairs, &QTableWidget::itemSelectionChanged, this, follow);
    connect(fRemove, &QPushButton::clicked, this, &WImportPage::removeRows);
    follow();
}

void WImportPage::removeRows()
{
    for (int row = fPairs->rowCount() - 1; row >= 0; --row) {
        if (!fPairs->item(row, 0)->isSelected())
            continue;
        fRemoved.append(fPairs->item(row, 0)->data(Qt::UserRole).toString());
        fPairs->removeRow(row);
    }
}

void WImportPage::apply()
{
    for (const QString &ending : qAsConst(fRemoved))
        TUnitMemory::forget(ending);
    fRemoved.clear();
}

WExportPage::WExportPage(QWidget *parent)
    : WSettingsPage(parent)
    , fResolution(named("resolutionSpinBox", new QSpinBox(this)))
    , fBackground(named("backgroundComboBox", new QComboBox(this)))
    , fTextAsText(named("textAsTextCheckBox", new QCheckBox(tr("&Text as text"), this)))
{
    fResolution->setRange(TPictureSettings::cLowestDpi, TPictureSettings::cHighestDpi);
    fResolution->setSuffix(tr(" dpi"));
    fBackground->addItem(tr("White"), TPictureExporter::cWhite);
    fBackground->addItem(tr("Transparent"), TPictureExporter::cTransparent);
    fBackground->addItem(tr("As shown"), TPictureExporter::cAsShown);
    fTextAsText->setToolTip(tr("Off: letters become outlines, for readers without the font"));
    const TPictureSettings pictures = TPictureSettings::load();
    fResolution->setValue(pictures.fDpi);
    choose(fBackground, pictures.fBackground);
    fTextAsText->setChecked(pictures.fTextAsText);
    auto *form = new QFormLayout(this);
    form->addRow(new QLabel(tr("Pictures begin with"), this));
    form->addRow(tr("&Resolution"), fResolution);
    form->addRow(tr("&Background"), fBackground);
    form->addRow(QString(), fTextAsText);
}

void WExportPage::apply()
{
    TPictureSettings pictures = TPictureSettings::load(); // the form stays
    pictures.fDpi = fResolution->value();
    pictures.fBackground = fBackground->currentData().toInt();
    pictures.fTextAsText = fTextAsText->isChecked();
    pictures.save();
}
