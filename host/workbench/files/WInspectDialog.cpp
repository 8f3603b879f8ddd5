#include "WInspectDialog.h"
#include "widgets/GuiUtils.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

enum TColumn { cPart, cValue, cNote, cPlace, cSize, cColumnCount };
constexpr QSize cFirstSize(860, 560);
constexpr int cPartWidth = 200;
constexpr int cValueWidth = 320;
constexpr int cOpenLevels = 2;
const QColor cBroken(0xD0, 0x02, 0x1B);

QString placeText(const TFileNode &node)
{
    if (node.fLine > 0)
        return WInspectDialog::tr("line %1").arg(node.fLine);
    return node.fOffset >= 0 ? QString::number(node.fOffset) : QString();
}

QTreeWidgetItem *makeRow(const TFileNode &node, const QPalette &palette)
{
    auto *row = new QTreeWidgetItem;
    row->setText(cPart, node.fName);
    row->setText(cValue, node.fValue);
    row->setText(cNote, node.fNote);
    row->setText(cPlace, placeText(node));
    row->setText(cSize, node.fSize >= 0 ? QString::number(node.fSize) : QString());
    for (const TColumn column : {cPlace, cSize})
        row->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    for (int column = 0; column < cColumnCount; ++column) {
        row->setToolTip(column, Utils::Gui::dataTip(row->text(column)));
        if (node.fState == TFileNode::cBroken)
            row->setForeground(column, cBroken);
        if (node.fState == TFileNode::cSkipped)
            row->setForeground(column, palette.color(QPalette::Disabled, QPalette::Text));
    }
    for (const TFileNode &inner : node.fRows)
        row->addChild(makeRow(inner, palette));
    return row;
}

} // namespace

WInspectDialog::WInspectDialog(const QString &path, const TFileNode &file, QWidget *parent)
    : QDialog(parent)
    , fFile(file)
{
    setObjectName("inspectDialog");
    setWindowTitle(tr("Inside %1").arg(QFileInfo(path).fileName()));
    resize(cFirstSize);
    auto *place = new QLabel(QDir::toNativeSeparators(path));
    place->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto *tree = new QTreeWidget;
    tree->setColumnCount(cColumnCount);
    tree->setHeaderLabels({tr("Part"), tr("Value"), tr("Meaning"), tr("Place"), tr("Bytes")});
    tree->setAlternatingRowColors(true);
    tree->addTopLevelItem(makeRow(file, palette()));
    tree->expandToDepth(cOpenLevels - 1);
    tree->setColumnWidth(cPart, cPartWidth);
    tree->setColumnWidth(cValue, cValueWidth);
    tree->header()->setStretchLastSection(false);
    tree->header()->setSectionResizeMode(cNote, QHeaderView::Stretch);
    for (const TColumn column : {cPlace, cSize})
        tree->header()->setSectionResizeMode(column, QHeaderView::ResizeToContents);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    QPushButton *copyButton = buttons->addButton(tr("&Copy"), QDialogButtonBox::ActionRole);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(place);
    layout->addWidget(tree);
    layout->addWidget(buttons);
    connect(copyButton, &QPushButton::clicked, this, &WInspectDialog::copy);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void WInspectDialog::copy() const
{
    QApplication::clipboard()->setText(fFile.text());
}
