#include "WOpenReport.h"

#include "services/TImportDriver.h"
#include "widgets/GuiUtils.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QFontDatabase>
#include <QHeaderView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

enum TColumn { cFile, cResult, cReason, cCode, cColumnCount };
constexpr QSize cFirstSize(760, 300);
constexpr int cDetailsHeight = 260;

/// The details stand in columns, and not every platform names a font for them.
QFont fixedFont()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    if (QFontInfo(font).fixedPitch())
        return font;
    font.setFamily("monospace");
    font.setStyleHint(QFont::TypeWriter);
    return font;
}

} // namespace

WOpenReport::WOpenReport(const TImportDriver &driver, const QList<TOpenResult> &results, QWidget *parent)
    : QDialog(parent)
    , fDriver(driver)
    , fResults(results)
    , fTable(new QTableWidget(results.size(), cColumnCount, this))
    , fDetails(new QPlainTextEdit(this))
{
    setObjectName("openReport");
    setWindowTitle(tr("Open Report"));
    resize(cFirstSize);
    fTable->setHorizontalHeaderLabels({tr("File"), tr("Result"), tr("Reason"), tr("Code")});
    fTable->verticalHeader()->hide();
    fTable->setShowGrid(false);
    fTable->setEditTriggers(QAbstractItemView::NoEditTriggers);
    fTable->setSelectionBehavior(QAbstractItemView::SelectRows);
    fTable->setSelectionMode(QAbstractItemView::SingleSelection);
    int firstFailed = -1;
    for (int row = 0; row < results.size(); ++row) {
        fillRow(row, results.at(row));
        if (firstFailed < 0 && !results.at(row).fOk)
            firstFailed = row;
    }
    fTable->resizeColumnsToContents();
    fTable->horizontalHeader()->setSectionResizeMode(cReason, QHeaderView::Stretch);
    fTable->resizeRowsToContents();
    fTable->selectRow(qMax(0, firstFailed));
    fDetails->setReadOnly(true);
    fDetails->setLineWrapMode(QPlainTextEdit::NoWrap);
    fDetails->setFont(fixedFont());
    fDetails->hide();

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QPushButton *details = buttons->addButton(tr("&Details..."), QDialogButtonBox::ActionRole);
    details->setCheckable(true);
    QPushButton *copyButton = buttons->addButton(tr("&Copy"), QDialogButtonBox::ActionRole);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(fTable, 1);
    layout->addWidget(fDetails, 1);
    layout->addWidget(buttons);
    connect(details, &QPushButton::toggled, this, &WOpenReport::showDetails);
    connect(copyButton, &QPushButton::clicked, this, &WOpenReport::copy);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(fTable, &QTableWidget::itemSelectionChanged, this, &WOpenReport::updateDetails);
    buttons->button(QDialogButtonBox::Close)->setDefault(true);
}

void WOpenReport::fillRow(int row, const TOpenResult &result)
{
    const auto set = [this, row, &result](int column, const QString &text) {
        auto *cell = new QTableWidgetItem(text);
        cell->setToolTip(Utils::Gui::dataTip(column == cFile ? QDir::toNativeSeparators(result.fPath) : text));
        fTable->setItem(row, column, cell);
    };
    set(cFile, QFileInfo(result.fPath).fileName());
    set(cResult, result.fOk ? tr("opened") : tr("failed"));
    const QString many = result.fSpectra > 1 ? tr("%1 spectra").arg(result.fSpectra) : QString();
    set(cReason, result.fOk ? (result.fSpectra == 1 ? tr("1 spectrum") : many) : result.fReason);
    // the codes of running out of memory and of values that are no numbers have the highest bit set
    const QString plain = result.fOk ? QString() : QString::number(result.fCode);
    set(cCode, result.fCode < 0 ? QString("0x%1").arg(quint32(result.fCode), 8, 16, QChar('0')) : plain);
}

QString WOpenReport::text() const
{
    QStringList lines;
    for (int row = -1; row < fTable->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < cColumnCount; ++column)
            cells.append(row < 0 ? fTable->horizontalHeaderItem(column)->text() : fTable->item(row, column)->text());
        lines.append(cells.join('\t'));
    }
    return lines.join('\n') + '\n';
}

void WOpenReport::copy() const
{
    QApplication::clipboard()->setText(fDetails->isVisible() ? text() + '\n' + fDetails->toPlainText() : text());
}

void WOpenReport::showDetails(bool show)
{
    if (show == fDetails->isVisibleTo(this))
        return;
    fDetails->setVisible(show);
    resize(width(), height() + (show ? cDetailsHeight : -cDetailsHeight));
    updateDetails();
}

void WOpenReport::updateDetails()
{
    const int row = fTable->currentRow();
    if (row < 0 || !fDetails->isVisibleTo(this))
        return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    fDetails->setPlainText(fDriver.inspect(fResults.at(row).fPath).text());
    QApplication::restoreOverrideCursor();
}
