#include "exchange/ExportFile.h"

#include "plugin/IConverter.h"
#include "services/TImportDriver.h"
#include "utils/TFileWriter.h"

#include <QCoreApplication>

namespace {

QString cannotWrite(const QString &path, const QString &why)
{
    return QCoreApplication::translate("ExportFile", "%1 cannot be written: %2").arg(path, why);
}

} // namespace

bool ExportFile::write(const QString &path, const QByteArray &bytes, QString *error)
{
    QString why;
    if (TFileWriter::write(path, bytes, &why))
        return true;
    *error = cannotWrite(path, why);
    return false;
}

int ExportFile::write(IConverter &converter, const TCanvasItemList &items, const QString &path, QString *error)
{
    const int code = converter.exportItems(items, path);
    if (code != cConverterOk) {
        const QString why = code == cConverterFileNotOpened ? converter.problem() : QString();
        *error = cannotWrite(path, why.isEmpty() ? TImportDriver::reason(code) : why);
    }
    return code;
}
