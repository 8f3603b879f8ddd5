#include "WYrexMultipointForm.h"

#include "TYrexBaselinePointsModel.h"
#include "TYrexMultipointSession.h"
#include "settings/TDefaultsIni.h"
#include "widgets/TDoubleSpinBox.h"
#include "widgets/TOwnKeys.h"

#include <QAction>
#include <QActionGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

constexpr int cMargin = 8;
constexpr int cRowRoom = 8; // px above and below the text of a row
constexpr char cKindKey[] = "Zarnu/Zarnu Baseline Correction/Default Action";

/// The kind of a point is chosen from a list.
class TKindDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &, const QModelIndex &) const override
    {
        auto *box = new QComboBox(parent);
        box->addItems(TYrexBaselinePointsModel::kindNames());
        connect(box, QOverload<int>::of(&QComboBox::activated), this, [this, box] {
            auto *self = const_cast<TKindDelegate *>(this);
            emit self->commitData(box);
            emit self->closeEditor(box);
        });
        return box;
    }
    void setEditorData(QWidget *editor, const QModelIndex &index) const override
    {
        static_cast<QComboBox *>(editor)->setCurrentIndex(index.data(Qt::EditRole).toInt() - 1);
    }
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override
    {
        model->setData(index, static_cast<QComboBox *>(editor)->currentIndex() + 1);
    }
};

QToolButton *buttonOf(QAction *action)
{
    auto *button = new QToolButton;
    button->setDefaultAction(action);
    button->setObjectName(action->objectName() + "Button");
    button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

/// A choice of an exclusive group of actions.
QRadioButton *radioOf(QAction *action)
{
    auto *radio = new QRadioButton(action->text());
    radio->setObjectName(action->objectName() + "Button");
    radio->setToolTip(action->toolTip());
    radio->setChecked(action->isChecked());
    QObject::connect(radio, &QRadioButton::clicked, action, &QAction::trigger);
    QObject::connect(action, &QAction::toggled, radio, &QRadioButton::setChecked);
    return radio;
}

} // namespace

WYrexMultipointForm::WYrexMultipointForm(TYrexBaselinePointsModel *model)
    : fKinds(new QActionGroup(this))
    , fHeader(new QLabel)
    , fNothing(new QLabel(tr("Click on the plot where the baseline should pass.")))
    , fCount(new QLabel)
    , fAlgorithm(new QComboBox)
    , fWindow(new QSpinBox)
    , fLambda(new TDoubleSpinBox)
    , fPreview(new QCheckBox(tr("Preview corrected spectrum")))
    , fTable(new QTableView)
    , fModel(model)
{
    makeKinds();
    makeActions();
    makeTable();
    makeBoxes();
    makeColumn();
    setFocusProxy(fTable);
}

void WYrexMultipointForm::makeKinds()
{
    const auto add = [this](const char *name, const QString &text, const QString &toolTip, int kind) {
        auto *action = new QAction(text, fKinds);
        action->setObjectName(name);
        action->setToolTip(toolTip);
        action->setCheckable(true);
        action->setData(kind);
    };
    add("action_PickFree", tr("Free"), tr("The point stands where it is placed (Ctrl + click)."),
        TYrexMultipointSession::cFree);
    add("action_PickAverage", tr("Average"), tr("The point takes the level of the data around it (Shift + click)."),
        TYrexMultipointSession::cAverage);
    add("action_PickSmooth", tr("Smooth"), tr("The point takes the level of 15 points to either side."),
        TYrexMultipointSession::cSmooth);
    const QString stored = TDefaultsIni().value(cKindKey, QString()).toString();
    fKinds->actions().at(1)->setChecked(true);
    for (QAction *action : fKinds->actions()) {
        if (action->objectName() == stored)
            action->setChecked(true);
    }
    connect(fKinds, &QActionGroup::triggered, this,
            [](const QAction *action) { TDefaultsIni().setValue(cKindKey, action->objectName()); });
}

void WYrexMultipointForm::makeActions()
{
    const auto make = [this](TAction which, const char *name, const QString &text, const QString &toolTip) {
        fActions[which] = new QAction(text, this);
        fActions[which]->setObjectName(name);
        fActions[which]->setToolTip(toolTip);
    };
    make(cAutoPoints, "action_AutoPoints", tr("Automatic Points"), tr("Adds points where the spectrum is flat."));
    make(cBorderPoints, "action_BorderPoints", tr("Border Points"), tr("Adds a point at either end of the spectrum."));
    make(cClear, "action_Clear", tr("Clear"), tr("Removes all points."));
    make(cUndo, "action_Undo", tr("Undo"), tr("Takes the last change of the points back (Ctrl+Z)."));
    make(cRedo, "action_Redo", tr("Redo"), tr("Does it again (Ctrl+Shift+Z)."));
    make(cCancel, "action_Cancel", tr("Cancel"), tr("Leaves the spectrum as it was."));
    make(cApply, "action_Apply", tr("Apply"), QString());
    fActions[cApply]->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Return));
    fActions[cApply]->setShortcutContext(Qt::WindowShortcut);
    addAction(fActions[cApply]);
}

void WYrexMultipointForm::makeTable()
{
    fTable->setObjectName("pointsTable");
    fTable->setAccessibleName(tr("Points of the baseline"));
    fTable->setModel(fModel);
    fTable->setItemDelegateForColumn(TYrexBaselinePointsModel::cKind, new TKindDelegate(fTable));
    fTable->setSelectionBehavior(QAbstractItemView::SelectRows);
    fTable->setSelectionMode(QAbstractItemView::SingleSelection);
    fTable->verticalHeader()->hide();
    fTable->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + cRowRoom);
    fTable->horizontalHeader()->setHighlightSections(false);
    for (int column = 0; column < fModel->columnCount(); ++column) // all of them in sight
        fTable->horizontalHeader()->setSectionResizeMode(column, QHeaderView::Stretch);
    fTable->horizontalHeader()->setSectionResizeMode(TYrexBaselinePointsModel::cNumber, QHeaderView::Fixed);
    fTable->setColumnWidth(TYrexBaselinePointsModel::cNumber, fontMetrics().horizontalAdvance("00000"));
    auto *keys = new TOwnKeys(fTable);
    keys->add(QKeySequence::Copy, [this] { emit copyWanted(); });
    keys->add(QKeySequence::Paste, [this] { emit pasteWanted(); });
    keys->add(QKeySequence::Delete, [this] { emit deleteWanted(); });
    connect(fTable->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &WYrexMultipointForm::pointSelected);
}

void WYrexMultipointForm::makeBoxes()
{
    fAlgorithm->setObjectName("algorithmComboBox");
    fAlgorithm->addItems({tr("Linear Segments"), tr("Smooth Segments"), tr("Cubic Splines"), tr("Whittaker")});
    fAlgorithm->setToolTip(tr("How the curve runs from point to point."));
    fWindow->setObjectName("avgWindowSpinBox");
    fWindow->setRange(0, TYrexMultipointSession::cMaxWindow);
    fWindow->setToolTip(tr("Points to either side over which a point of the kind Average takes the level."));
    fLambda->setObjectName("lambdaSpinBox");
    fLambda->setRange(1, TYrexMultipointSession::cMaxLambda);
    fLambda->setDecimals(0);
    fLambda->setLogSteps(true);
    fLambda->setToolTip(tr("Stiffness of the Whittaker curve."));
    fPreview->setObjectName("previewCheckBox");
    fPreview->setToolTip(tr("Shows the data minus the curve; the points stay."));
    connect(fAlgorithm, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &WYrexMultipointForm::algorithmChosen);
    connect(fWindow, QOverload<int>::of(&QSpinBox::valueChanged), this, &WYrexMultipointForm::avgWindowChosen);
    connect(fLambda, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
            [this](double lambda) { emit lambdaChosen(qRound(lambda)); });
    connect(fPreview, &QCheckBox::toggled, this, &WYrexMultipointForm::previewChosen);
}

QLayout *WYrexMultipointForm::makeCurveRow()
{
    auto *grid = new QGridLayout;
    const auto label = [grid](const QString &text, QWidget *buddy, int row) {
        auto *one = new QLabel(text);
        one->setBuddy(buddy);
        grid->addWidget(one, row, 0);
        grid->addWidget(buddy, row, 1);
    };
    auto *kinds = new QWidget;
    auto *row = new QHBoxLayout(kinds);
    row->setContentsMargins(0, 0, 0, 0);
    for (QAction *action : fKinds->actions())
        row->addWidget(radioOf(action));
    row->addStretch(1);
    label(tr("Point"), kinds, 0);
    label(tr("&Curve"), fAlgorithm, 1);
    label(tr("A&veraging, points"), fWindow, 2);
    label(tr("&Lambda"), fLambda, 3);
    grid->setColumnStretch(1, 1);
    return grid;
}

QLayout *WYrexMultipointForm::makeButtons()
{
    auto *row = new QHBoxLayout;
    row->addWidget(buttonOf(fActions[cUndo]));
    row->addWidget(buttonOf(fActions[cRedo]));
    row->addStretch(1);
    row->addWidget(buttonOf(fActions[cCancel]));
    row->addWidget(buttonOf(fActions[cApply]));
    return row;
}

void WYrexMultipointForm::makeColumn()
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(cMargin, cMargin, cMargin, cMargin);
    fHeader->setObjectName("headerLabel");
    fHeader->setWordWrap(true);
    column->addWidget(fHeader);
    column->addLayout(makeCurveRow());
    auto *row = new QHBoxLayout;
    for (QAction *action : {fActions[cAutoPoints], fActions[cBorderPoints], fActions[cClear]})
        row->addWidget(buttonOf(action));
    column->addLayout(row);
    column->addWidget(fPreview);
    fNothing->setAlignment(Qt::AlignCenter);
    fNothing->setWordWrap(true);
    fNothing->setEnabled(false); // the grey of disabled things
    column->addWidget(fNothing);
    column->addWidget(fTable, 1);
    fCount->setObjectName("countLabel");
    column->addWidget(fCount);
    column->addLayout(makeButtons());
}

int WYrexMultipointForm::kind() const
{
    return fKinds->checkedAction()->data().toInt();
}

int WYrexMultipointForm::selectedPoint() const
{
    const QModelIndexList rows = fTable->selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.first().row();
}

void WYrexMultipointForm::selectPoint(int index)
{
    if (index < 0 || index >= fModel->rowCount())
        fTable->clearSelection();
    else
        fTable->selectRow(index);
}

void WYrexMultipointForm::showSession(const TYrexMultipointSession *session)
{
    const bool isOn = session != nullptr;
    const int count = isOn ? session->points().size() : 0;
    if (isOn) {
        const TYrexMultipointSetup &setup = session->setup();
        const QSignalBlocker a(fAlgorithm), b(fWindow), c(fLambda);
        fAlgorithm->setCurrentIndex(setup.algorithm);
        if (fWindow->value() != setup.avgWindow)
            fWindow->setValue(setup.avgWindow);
        if (qRound(fLambda->value()) != setup.lambda)
            fLambda->setValue(setup.lambda);
    }
    fLambda->setEnabled(isOn && fAlgorithm->currentIndex() == TYrexMultipointSetup::cWhittaker);
    fActions[cUndo]->setEnabled(isOn && session->canUndo());
    fActions[cRedo]->setEnabled(isOn && session->canRedo());
    fActions[cClear]->setEnabled(count > 0);
    fActions[cApply]->setEnabled(isOn && session->missingPoints() == 0);
    const bool isStraight = fAlgorithm->currentIndex() == TYrexMultipointSetup::cCubicSplines && count == 2;
    fActions[cApply]->setToolTip(!fActions[cApply]->isEnabled() ? tr("A baseline needs two points.")
                                 : isStraight ? tr("With two points the spline is a straight line; three let it bend.")
                                              : tr("Takes the baseline away and closes the dock (Ctrl+Return)."));
    QString text = count == 1 ? tr("1 point") : tr("%1 points").arg(count);
    if (isOn && session->setup().autoPointCount >= 0)
        text = tr("%1, %2 automatic").arg(text).arg(session->setup().autoPointCount);
    fCount->setText(text);
    fNothing->setVisible(count == 0);
}

void WYrexMultipointForm::setHeader(const QString &text)
{
    fHeader->setText(text);
    fHeader->setVisible(!text.isEmpty());
}

void WYrexMultipointForm::setPreviewChecked(bool on)
{
    const QSignalBlocker quiet(fPreview);
    fPreview->setChecked(on);
}
