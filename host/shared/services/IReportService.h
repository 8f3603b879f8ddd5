#pragma once

#include <QPair>
#include <QString>
#include <QVector>
#include <functional>

/// What a report tells, without any form: a head, numbered sections, and a closing line.
struct TReport
{
    using TRows = QVector<QPair<QString, QString>>; // label and value

    struct TSection
    {
        QString fTitle;
        TRows fRows;
    };

    QString fTitle;
    TRows fHead;
    QVector<TSection> fSections;
    QString fFoot; // empty for none
};

/// The reports of plug-ins, by name. Plug-ins give the rows, the service makes the tables.
class IReportService
{
public:
    /// What to report now.
    using TReporter = std::function<TReport()>;

    virtual ~IReportService() = default;
    /// A later reporter of the same name replaces an earlier one; an empty one takes it away.
    virtual void registerReporter(const QString &name, const TReporter &reporter) = 0;
    /// Shows a report in a window of its own, from which it can be copied, saved and printed.
    virtual void show(const QString &name) = 0;
    /// Puts a report on the clipboard in both of its forms.
    virtual void copy(const QString &name) = 0;
    /// Asks what a report is to hold.
    virtual void setup(const QString &name) = 0;
};
