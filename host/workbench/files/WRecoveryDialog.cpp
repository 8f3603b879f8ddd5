#include "WRecoveryDialog.h"

#include "TRecovery.h"
#include "widgets/GuiUtils.h"

#include <QDir>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <functional>

namespace {

enum TColumn { cDocument, cLastSaved, cAutosaved, cSteps };
constexpr QSize cThumbnailSize(120, 84);
constexpr QSize cFirstSize(720, 380);

QString timeText(const QDateTime &time)
{
    if (!time.isValid())
        return WRecoveryDialog::tr("never");
    const bool isToday = time.date() == QDate::currentDate();
    return time.toString(isToday ? QStringLiteral("HH:mm") : QStringLiteral("yyyy-MM-dd HH:mm"));
}

} // namespace

WRecoveryDialog::WRecoveryDialog(TRecovery &recovery, QWidget *parent)
    : QDialog(parent)
    , fRecovery(recovery)
    , fTable(new QTableWidget(this))
{
    setObjectName("recoveryDialog");
    setWindowTitle(tr("Recover Documents"));
    resize(cFirstSize);
    auto *text = new QLabel(tr("Kelmora ended without having saved these documents. What was kept of them can be "
                               "recovered; the files on the disk stay as they are until you save."));
    text->setWordWrap(true);
    fTable->setColumnCount(4);
    fTable->setHorizontalHeaderLabels(
        {tr("Document"), tr("Last saved"), tr("Autosaved"), tr("Steps lost if discarded")});
    fTable->horizontalHeader()->setSectionResizeMode(cDocument, QHeaderView::Stretch);
    fTable->verticalHeader()->hide();
    fTable->setIconSize(cThumbnailSize);
    fTable->setShowGrid(false);
    fTable->setEditTriggers(QAbstractItemView::NoEditTriggers);
    fTable->setSelectionBehavior(QAbstractItemView::SelectRows);

    auto *buttons = new QHBoxLayout;
    const auto add = [&](const QString &label, const std::function<void()> &run) {
        auto *button = new QPushButton(label);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, run);
        buttons->addWidget(button);
        return button;
    };
    fRecover = add(tr("&Recover"), [this] { recoverSelected(); });
    fRecover->setDefault(true);
    add(tr("Recover &All"), [this] { recoverAll(); });
    fShowSaved = add(tr("&Show Saved Version"), [this] { showSaved(); });
    buttons->addStretch();
    fDiscard = add(tr("&Discard..."), [this] { discard(); });
    add(tr("Decide &Later"), [this] { reject(); });

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(text);
    layout->addWidget(fTable);
    layout->addLayout(buttons);
    connect(fTable, &QTableWidget::itemSelectionChanged, this, &WRecoveryDialog::updateButtons);
    fill();
}

void WRecoveryDialog::fill()
{
    fTable->setRowCount(fRecovery.count());
    for (int row = 0; row < fRecovery.count(); ++row)
        fillRow(row);
    fTable->resizeRowsToContents();
    for (const int column : {cLastSaved, cAutosaved, cSteps})
        fTable->resizeColumnToContents(column);
    if (fRecovery.count() > 0)
        fTable->selectRow(0);
    updateButtons();
}

void WRecoveryDialog::fillRow(int row)
{
    const TAutosaveInfo &info = fRecovery.info(row);
    auto *name = new QTableWidgetItem(fRecovery.name(row));
    QPixmap thumbnail;
    if (thumbnail.loadFromData(info.fThumbnail, "PNG"))
        name->setIcon(thumbnail);
    name->setToolTip(Utils::Gui::dataTip(QDir::toNativeSeparators(info.fDocumentPath)));
    fTable->setItem(row, cDocument, name);
    fTable->setItem(row, cLastSaved, new QTableWidgetItem(timeText(info.fSaved)));
    fTable->setItem(row, cAutosaved, new QTableWidgetItem(timeText(info.fAutosaved)));
    fTable->setItem(row, cSteps,
                    new QTableWidgetItem(info.fSteps == 1 ? tr("1 step") : tr("%1 steps").arg(info.fSteps)));
}

QList<int> WRecoveryDialog::selectedRows() const
{
    QList<int> rows;
    for (const QModelIndex &index : fTable->selectionModel()->selectedRows())
        rows.append(index.row());
    std::sort(rows.begin(), rows.end());
    return rows;
}

void WRecoveryDialog::updateButtons()
{
    const QList<int> rows = selectedRows();
    fRecover->setEnabled(!rows.isEmpty());
    fDiscard->setEnabled(!rows.isEmpty());
    const bool isThere = rows.size() == 1 && fRecovery.hasSavedVersion(rows.first());
    fShowSaved->setEnabled(isThere);
    fShowSaved->setToolTip(isThere ? QString() : tr("Needs one document that has a file on the disk."));
}

/// From the last to the first, since the rows go one by one.
void WRecoveryDialog::recoverRows(const QList<int> &rows)
{
    QStringList failed;
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
        const QString name = fRecovery.name(*row);
        QString error;
        if (!fRecovery.recover(*row, &error))
            failed.append(tr("%1 could not be recovered. %2 The copy was kept and is offered again at the next start.")
                              .arg(name, error));
    }
    fill();
    if (!failed.isEmpty())
        Utils::Gui::message(this, QMessageBox::Warning, windowTitle(), failed.join("\n\n"));
    if (fRecovery.count() == 0)
        accept();
}

void WRecoveryDialog::recoverSelected()
{
    recoverRows(selectedRows());
}

void WRecoveryDialog::recoverAll()
{
    QList<int> rows;
    for (int row = 0; row < fRecovery.count(); ++row)
        rows.append(row);
    recoverRows(rows);
}

void WRecoveryDialog::showSaved()
{
    const QList<int> rows = selectedRows();
    QString error;
    if (rows.size() != 1 || fRecovery.showSaved(rows.first(), &error))
        return;
    Utils::Gui::message(this, QMessageBox::Warning, windowTitle(),
                        tr("%1 could not be opened. %2 Nothing was changed. Recover opens the copy instead.")
                            .arg(fRecovery.name(rows.first()), error));
}

void WRecoveryDialog::discard()
{
    const QList<int> rows = selectedRows();
    int steps = 0;
    QStringList names;
    for (const int row : rows) {
        steps += fRecovery.info(row).fSteps;
        names.append(fRecovery.name(row));
    }
    Utils::Gui::TMessage question;
    question.fIcon = QMessageBox::Warning;
    question.fTitle = windowTitle();
    question.fText = tr("%1: steps that are not saved and will be lost for good: %2.").arg(names.join(", ")).arg(steps);
    question.fButtons = QMessageBox::Discard | QMessageBox::Cancel;
    question.fDefault = QMessageBox::Cancel;
    if (rows.isEmpty() || Utils::Gui::ask(this, question) != QMessageBox::Discard)
        return;
    for (auto row = rows.rbegin(); row != rows.rend(); ++row)
        fRecovery.discard(*row);
    fill();
    if (fRecovery.count() == 0)
        accept();
}
