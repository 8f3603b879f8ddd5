#pragma once

#include <QString>

struct TReport;

/// The two forms of a report.
namespace ReportText {

/// One table per section with its style inline, without scripts; A4 with margins of 20 mm when it is printed.
QString html(const TReport &report, bool withHead);
/// Lines of at most 78 columns, "label: value"; longer ones go on below, indented.
QString plain(const TReport &report, bool withHead);

} // namespace ReportText
