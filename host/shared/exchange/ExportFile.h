#pragma once

#include <QString>

class IConverter;
class QByteArray;
class TCanvasItemList;

/// Files that leave the program, written whole or not at all, and what to say where they cannot be.
namespace ExportFile {

/// False with the reason in words when the file cannot be written; what stood there stays then.
bool write(const QString &path, const QByteArray &bytes, QString *error);
/// Lets a converter write the items. Returns its TConverterCode, 51 when the place cannot be written, with the reason
/// in words; what stood there stays then.
int write(IConverter &converter, const TCanvasItemList &items, const QString &path, QString *error);

} // namespace ExportFile
