#pragma once

#include "jcamp/TJCAMPRecord.h"

namespace Utils {
namespace JCAMP {

/// Whether a label is that of a table of data, which has a form such as "(X++(Y..Y))" before its lines.
bool isTableLabel(const QByteArray &label);

/// The form of a table, "(X++(Y..Y))"; empty when none is written. The last bracket may be missing.
QByteArray tableForm(const QByteArray &text, const TJCAMPRecord &record);

/// The first byte of a table's data: the byte behind the form when a number follows it in its line, else the next
/// line. "(X++(Y..Y)), XYDATA" names the table once more and holds no data.
qint64 tableStart(const QByteArray &text, const TJCAMPRecord &record);

} // namespace JCAMP
} // namespace Utils
