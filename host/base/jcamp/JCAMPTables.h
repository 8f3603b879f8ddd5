#pragma once

#include "jcamp/TJCAMPRecord.h"

namespace Utils {
namespace JCAMP {

/// Whether a label is that of a table of data, which has a form such as "(X++(Y..Y))" before its lines.
bool isTableLabel(const QByteArray &label);

/// The form of a table, "(X++(Y..Y))"; empty when none is written. The last bracket may be missing.
QByteArray tableForm(const QByteArray &text, const TJCAMPRecord &record);

/// The first byte of a table's data: the next line when nothing follows the form but blanks and a comment, else the
/// byte behind the form.
qint64 tableStart(const QByteArray &text, const TJCAMPRecord &record);

} // namespace JCAMP
} // namespace Utils
