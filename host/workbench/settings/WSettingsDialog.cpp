#include "WSettingsDialog.h"

#include "settings/TDefaultsIni.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QListWidget>
#include <QPushButton>
#include <QStackedWidget>

namespace {

constexpr char cPageKey[] = "Kelmora/Settings/Page";
constexpr int cTitlesWidth = 120;
constexpr QSize cSize(600, 380);

} // namespace

WSettingsDialog::WSettingsDialog(QWidget *parent)
    : QDialog(parent)
    , fTitles(new QListWidget(this))
    , fStack(new QStackedWidget(this))
{
    setWindowTitle(tr("Settings"));
    setObjectName("settingsDialog");
    fTitles->setObjectName("pagesList");
    fTitles->setFixedWidth(cTitlesWidth);
    auto *buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Apply | QDialogButtonBox::Cancel, this);
    auto *layout = new QGridLayout(this);
    layout->addWidget(fTitles, 0, 0);
    layout->addWidget(fStack, 0, 1);
    layout->addWidget(buttons, 1, 0, 1, 2);
    layout->setColumnStretch(1, 1);
    resize(cSize);
    connect(fTitles, &QListWidget::currentRowChanged, fStack, &QStackedWidget::setCurrentIndex);
    connect(fTitles, &QListWidget::currentRowChanged, this, [](int page) {
        if (page >= 0)
            TDefaultsIni().setValue(cPageKey, page);
    });
    connect(buttons, &QDialogButtonBox::accepted, this, &WSettingsDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(buttons->button(QDialogButtonBox::Apply), &QPushButton::clicked, this, &WSettingsDialog::apply);
}

void WSettingsDialog::addPlainPage(const QString &title, QWidget *page)
{
    const int wanted = TDefaultsIni().value(cPageKey, 0).toInt();
    fStack->addWidget(page);
    const QSignalBlocker blocker(fTitles); // the first row becomes the current one by itself
    fTitles->addItem(title);
    showPage(qMin(wanted, fTitles->count() - 1));
}

void WSettingsDialog::addPage(const QString &title, WSettingsPage *page)
{
    fPages.append(page);
    addPlainPage(title, page);
}

void WSettingsDialog::showPage(int page)
{
    fTitles->setCurrentRow(page);
    fStack->setCurrentIndex(page);
}

void WSettingsDialog::apply()
{
    for (WSettingsPage *page : qAsConst(fPages))
        page->apply();
    TDefaultsIni::sync();
    emit applied();
}

void WSettingsDialog::accept()
{
    apply();
    QDialog::accept();
}
