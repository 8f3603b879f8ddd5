#include "WYrexParamTemplatesDialog.h"

#include "TYrexParamTemplatesModel.h"
#include "TYrexSpectrum.h"
#include "utils/CommonUtils.h"
#include "widgets/TOwnKeys.h"
#include "widgets/TTableDelegate.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QVBoxLayout>

namespace {

constexpr QSize cFirstSize(900, 480);
constexpr int cWidths[TYrexParamTemplatesModel::cColumnCount] = {150, 200, 100, 84, 68, 120};

/// Offers the parameters that have no row yet.
class TParameterDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &, const QModelIndex &place) const override
    {
        auto *box = new QComboBox(parent);
        const auto *model = static_cast<const TYrexParamTemplatesModel *>(place.model());
        for (const QPair<QString, int> &choice : model->choices(place.row()))
            box->addItem(choice.first, choice.second);
        return box;
    }
    void setEditorData(QWidget *editor, const QModelIndex &place) const override
    {
        auto *box = static_cast<QComboBox *>(editor);
        box->setCurrentIndex(box->findData(place.data(Qt::EditRole)));
    }
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &place) const override
    {
        model->setData(place, static_cast<QComboBox *>(editor)->currentData(), Qt::EditRole);
    }
};

} // namespace

WYrexParamTemplatesDialog::WYrexParamTemplatesDialog(const TYrexSpectrum &spectrum, QWidget *parent)
    : QDialog(parent)
    , fModel(new TYrexParamTemplatesModel(spectrum, this))
    , fView(new QTableView(this))
{
    setObjectName("parameterTemplatesDialog");
    setWindowTitle(tr("Parameter Template"));
    auto *label = new QLabel(tr("Parameters of %1 files. Later imports are read in the same way.")
                                 .arg(Utils::Common::fileFormatToStr(spectrum.fileFormat())),
                             this);
    label->setWordWrap(true);
    makeView();
    auto *middle = new QHBoxLayout;
    middle->addWidget(fView, 1);
    middle->addWidget(makeButtons());
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *column = new QVBoxLayout(this);
    column->addWidget(label);
    column->addLayout(middle, 1);
    column->addWidget(buttons);
    resize(cFirstSize);
    select(0);
    fView->setFocus();
}

void WYrexParamTemplatesDialog::makeView()
{
    fView->setObjectName("templatesTable");
    fView->setAccessibleName(tr("Parameters"));
    fView->setModel(fModel);
    fView->setItemDelegate(new TTableDelegate(fView));
    fView->setItemDelegateForColumn(TYrexParamTemplatesModel::cParameter, new TParameterDelegate(fView));
    fView->setSelectionBehavior(QAbstractItemView::SelectRows);
    fView->setSelectionMode(QAbstractItemView::SingleSelection);
    fView->setAlternatingRowColors(true);
    fView->setWordWrap(false);
    fView->verticalHeader()->hide();
    fView->horizontalHeader()->setHighlightSections(false);
    fView->horizontalHeader()->setStretchLastSection(true);
    for (int column = 0; column < TYrexParamTemplatesModel::cColumnCount; ++column)
        fView->setColumnWidth(column, cWidths[column]);
    connect(fView->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &WYrexParamTemplatesDialog::updateButtons);
    auto *keys = new TOwnKeys(fView);
    keys->add(QKeySequence(Qt::Key_Delete), [this] { fRemove->click(); });
    keys->add(QKeySequence(Qt::ALT + Qt::Key_Up), [this] { fUp->click(); });
    keys->add(QKeySequence(Qt::ALT + Qt::Key_Down), [this] { fDown->click(); });
}

QWidget *WYrexParamTemplatesDialog::makeButtons()
{
    auto *side = new QWidget(this);
    auto *column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    const auto add = [&](const QString &text, const QString &tip) {
        auto *button = new QPushButton(text, side);
        button->setAutoDefault(false);
        button->setToolTip(tip);
        column->addWidget(button);
        return button;
    };
    connect(add(tr("&Add"), tr("Adds a parameter behind the current one.")), &QPushButton::clicked, this, [this] {
        select(fModel->add(row()));
        if (row() >= 0)
            fView->edit(fModel->index(row(), TYrexParamTemplatesModel::cParameter));
    });
    fRemove = add(tr("&Remove"), tr("Removes the parameter. What was set by hand stays with the spectra."));
    fUp = add(tr("Move &Up"), tr("Alt+Up"));
    fDown = add(tr("Move &Down"), tr("Alt+Down"));
    column->addStretch();
    connect(fRemove, &QAbstractButton::clicked, this, [this] {
        const int at = row();
        fModel->remove(at);
        select(qMin(at, fModel->rowCount() - 1));
    });
    connect(fUp, &QAbstractButton::clicked, this, [this] { select(fModel->move(row(), -1)); });
    connect(fDown, &QAbstractButton::clicked, this, [this] { select(fModel->move(row(), 1)); });
    connect(add(tr("&Defaults"), tr("Back to what the program begins with.")), &QPushButton::clicked, this, [this] {
        fModel->reset();
        select(0);
    });
    return side;
}

int WYrexParamTemplatesDialog::row() const
{
    return fView->currentIndex().row();
}

void WYrexParamTemplatesDialog::select(int row)
{
    const int column = qMax(0, fView->currentIndex().column());
    if (row >= 0)
        fView->setCurrentIndex(fModel->index(row, column));
    updateButtons();
}

void WYrexParamTemplatesDialog::updateButtons()
{
    if (!fRemove)
        return;
    fRemove->setEnabled(row() >= 0);
    fUp->setEnabled(row() > 0);
    fDown->setEnabled(row() >= 0 && row() + 1 < fModel->rowCount());
}

TSpectrumParamsTemplate WYrexParamTemplatesDialog::templates() const
{
    return fModel->templates();
}

bool WYrexParamTemplatesDialog::isChanged() const
{
    return fModel->isChanged();
}
