#include "TReportService.h"

#include "WReportPreview.h"
#include "services/ReportText.h"
#include "settings/TDefaultsIni.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QVBoxLayout>

namespace {

QString headKey(const QString &name)
{
    return QString("Kelmora/Reports/%1/Head").arg(name);
}

QString text(const char *source)
{
    return QCoreApplication::translate("TReportService", source);
}

} // namespace

TReportService::TReportService(QWidget *window)
    : fWindow(window)
{
}

bool TReportService::hasHead(const QString &name)
{
    return TDefaultsIni().value(headKey(name), true).toBool();
}

void TReportService::setHead(const QString &name, bool hasHead)
{
    TDefaultsIni().setValue(headKey(name), hasHead);
}

void TReportService::registerReporter(const QString &name, const TReporter &reporter)
{
    if (reporter)
        fReporters.insert(name, reporter);
    else
        fReporters.remove(name);
}

void TReportService::show(const QString &name)
{
    if (!fReporters.contains(name))
        return;
    const TReport report = fReporters.value(name)();
    auto *preview = new WReportPreview(report.fTitle, ReportText::html(report, hasHead(name)),
                                       ReportText::plain(report, hasHead(name)), fWindow);
    preview->setAttribute(Qt::WA_DeleteOnClose);
    preview->show();
}

void TReportService::copy(const QString &name)
{
    if (!fReporters.contains(name))
        return;
    const TReport report = fReporters.value(name)();
    WReportPreview::copy(ReportText::html(report, hasHead(name)), ReportText::plain(report, hasHead(name)));
}

void TReportService::setup(const QString &name)
{
    auto *dialog = new QDialog(fWindow);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setObjectName("reportSetupDialog");
    dialog->setWindowTitle(text("Report Set-up"));
    auto *head = new QCheckBox(text("&Begin with the origin of the data"), dialog);
    head->setObjectName("headCheckBox");
    head->setChecked(hasHead(name));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, dialog);
    auto *column = new QVBoxLayout(dialog);
    column->addWidget(head);
    column->addWidget(buttons);
    QObject::connect(buttons, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    QObject::connect(dialog, &QDialog::accepted, head, [name, head] { setHead(name, head->isChecked()); });
    dialog->open();
}
