#include "widgets/WTableTools.h"

#include "exchange/ExportFile.h"
#include "exchange/TItemsMime.h"
#include "settings/TDefaultsIni.h"
#include "settings/TNumberFormat.h"
#include "tables/TTableProperties.h"
#include "widgets/GuiUtils.h"
#include "widgets/TTableProxy.h"

#include <QActionGroup>
#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QTableView>
#include <QToolButton>
#include <algorithm>

namespace {

constexpr int cAllDigits = 17; // read back to the same double
constexpr int cMaxDecimals = 8;
constexpr int cFilterWidth = 140;
constexpr char cExportFolder[] = "Kelmora/Folders/ExportTable";

} // namespace

WTableTools::WTableTools(QTableView *view, TTableProxy *proxy, QWidget *parent)
    : QWidget(parent)
    , fView(view)
    , fProxy(proxy)
    , fFilter(new QLineEdit(this))
    , fPlace(new QToolButton(this))
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred); // the row gives what is left to the owner's tools
    fPlace->setText(tr("Place on Page"));
    fPlace->setToolTip(tr("Puts the table on the page, where it follows the spectrum."));
    fPlace->setAutoRaise(true);
    fPlace->hide();
    row->addWidget(fPlace);
    makeButtons();
    fFilter->setPlaceholderText(tr("Filter"));
    fFilter->setAccessibleName(tr("Filter"));
    fFilter->setToolTip(tr("Shows the rows that hold this text."));
    fFilter->setClearButtonEnabled(true);
    fFilter->setMaximumWidth(cFilterWidth);
    row->addWidget(fFilter);
    connect(fFilter, &QLineEdit::textChanged, proxy, &TTableProxy::setFilter);
}

void WTableTools::makeButtons()
{
    const auto button = [this](const QString &text, const QString &tip) {
        auto *one = new QToolButton(this);
        one->setText(text);
        one->setToolTip(tip);
        one->setAutoRaise(true);
        layout()->addWidget(one);
        return one;
    };
    QToolButton *copies = button(tr("Copy"), tr("Copies the selected rows, all when none are selected."));
    copies->setPopupMode(QToolButton::MenuButtonPopup);
    copies->setMenu(new QMenu(copies));
    copies->menu()->addAction(tr("Copy with All Digits"), this, [this] { copy(true); });
    connect(copies, &QToolButton::clicked, this, [this] { copy(false); });
    connect(button(tr("Export..."), tr("Writes the table to a file.")), &QToolButton::clicked, this,
            &WTableTools::askForExport);
    QToolButton *decimals = button(tr("Decimals"), tr("Decimals of the numbers in the table."));
    decimals->setPopupMode(QToolButton::InstantPopup);
    auto *menu = new QMenu(decimals);
    auto *group = new QActionGroup(menu);
    for (int i = -1; i <= cMaxDecimals; ++i) {
        QAction *action = menu->addAction(i < 0 ? tr("Auto") : QString::number(i), this, [this, i] {
            fDecimals = i;
            emit decimalsChosen(i);
        });
        action->setCheckable(true);
        action->setChecked(i < 0);
        group->addAction(action);
    }
    decimals->setMenu(menu);
}

void WTableTools::offerPlacing(const std::function<void()> &place, const QString &text)
{
    fPlace->show();
    if (text.isEmpty()) {
        connect(fPlace, &QToolButton::clicked, this, place);
        return;
    }
    if (!fPlace->menu()) {
        fPlace->setMenu(new QMenu(fPlace));
        fPlace->setPopupMode(QToolButton::InstantPopup);
    }
    fPlace->menu()->addAction(text, this, place);
}

TTableProperties WTableTools::shownProperties(const QString &table) const
{
    TTableProperties properties(table);
    const auto key = [this](int column) {
        const QString name = fProxy->headerData(column, Qt::Horizontal, TTableProxy::cKeyRole).toString();
        return name.isEmpty() ? QString::number(column) : name;
    };
    QStringList columns;
    const QHeaderView *header = fView->horizontalHeader();
    for (int visual = 0; visual < header->count(); ++visual) {
        const int column = header->logicalIndex(visual);
        const bool hasTitle = !fProxy->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString().isEmpty();
        if (!header->isSectionHidden(column) && hasTitle)
            columns.append(key(column));
    }
    properties.setColumns(columns);
    if (fProxy->sortColumn() >= 0)
        properties.setSort(key(fProxy->sortColumn()), fProxy->sortOrder() == Qt::DescendingOrder);
    properties.setFilter(fFilter->text());
    properties.setDecimals(fDecimals);
    return properties;
}

QString WTableTools::cell(int row, int column, bool allDigits) const
{
    const QModelIndex place = fProxy->index(row, column);
    const QVariant check = place.data(Qt::CheckStateRole);
    if (check.isValid())
        return check.toInt() == Qt::Checked ? tr("yes") : tr("no");
    const QVariant number = place.data(TTableProxy::cNumberRole);
    QString shown = place.data().toString();
    if (!number.isValid())
        return shown;
    QString text = allDigits ? QString::number(number.toDouble(), 'g', cAllDigits) : TNumberFormat::plain(shown);
    return TDefaultsIni().value(TItemsMime::cDecimalSignKey, ".").toString() == "," ? text.replace('.', ',') : text;
}

TRowTable WTableTools::rows(bool allDigits, bool onlySelected) const
{
    QVector<int> columns;
    QStringList titles;
    const QHeaderView *header = fView->horizontalHeader();
    for (int visual = 0; visual < header->count(); ++visual) {
        const int column = header->logicalIndex(visual);
        const QString title = fProxy->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
        if (header->isSectionHidden(column) || title.isEmpty())
            continue;
        columns.append(column);
        titles.append(title);
    }
    QVector<int> wanted;
    for (const QModelIndex &place : fView->selectionModel()->selectedRows())
        wanted.append(place.row());
    std::sort(wanted.begin(), wanted.end());
    if (wanted.isEmpty() || !onlySelected) {
        wanted.clear();
        for (int row = 0; row < fProxy->rowCount(); ++row)
            wanted.append(row);
    }
    TRowTable table;
    table.setHeader(titles);
    for (const int row : qAsConst(wanted)) {
        if (fProxy->index(row, 0).data(TTableProxy::cHeadingRole).toBool())
            continue;
        QStringList cells;
        for (const int column : qAsConst(columns))
            cells.append(cell(row, column, allDigits));
        table.addRow(cells);
    }
    return table;
}

void WTableTools::copy(bool allDigits)
{
    const TRowTable table = rows(allDigits);
    if (!table.isEmpty())
        QApplication::clipboard()->setMimeData(table.mimeData());
}

bool WTableTools::exportTo(const QString &path, QString *error) const
{
    return ExportFile::write(path, rows(false, false).bytes(TRowTable::formOf(path)), error);
}

void WTableTools::askForExport()
{
    const QString folder = TDefaultsIni().value(cExportFolder, QString()).toString();
    const QString path = QFileDialog::getSaveFileName(
        this, tr("Export Table"), folder, tr("Comma separated (*.csv);;Text with tabs (*.txt);;Web page (*.html)"));
    if (path.isEmpty())
        return;
    TDefaultsIni().setValue(cExportFolder, QFileInfo(path).absolutePath());
    Utils::Gui::TMessage message;
    message.fIcon = QMessageBox::Warning;
    message.fTitle = tr("Export Table");
    if (!exportTo(path, &message.fText))
        Utils::Gui::ask(this, message);
}
