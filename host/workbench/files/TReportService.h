#pragma once

#include "services/IReportService.h"

#include <QHash>

class QWidget;

/// The reports of the window: shown in a preview, copied as html and as plain text.
class TReportService : public IReportService
{
public:
    explicit TReportService(QWidget *window);

    void registerReporter(const QString &name, const TReporter &reporter) override;
    void show(const QString &name) override;
    void copy(const QString &name) override;
    void setup(const QString &name) override;

    /// Whether the report begins with where its data come from.
    static bool hasHead(const QString &name);
    static void setHead(const QString &name, bool hasHead);

private:
    QWidget *fWindow;
    QHash<QString, TReporter> fReporters;
};
