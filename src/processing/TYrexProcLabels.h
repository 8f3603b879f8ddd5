#pragma once

#include <QString>

/// The display texts of ids, translated in the context "TYrexProcParams".
namespace TYrexProcLabels {

/// Empty for an id below 0 or beyond the last one.
QString label(int id);
/// The same text before translation.
QString sourceLabel(int id);

} // namespace TYrexProcLabels
