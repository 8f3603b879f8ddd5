#include "exchange/ExportFile.h"

#include "plugin/IConverter.h"
#include "services/TImportDriver.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <cstdio>

namespace {

QString cannotWrite(const QString &path, const QString &why)
{
    return QCoreApplication::translate("ExportFile", "%1 cannot be written: %2").arg(path, why);
}

} // namespace

bool ExportFile::write(const QString &path, const QByteArray &bytes, QString *error)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit())
        return true;
    *error = cannotWrite(path, file.errorString());
    return false;
}

int ExportFile::write(IConverter &converter, const TCanvasItemList &items, const QString &path, QString *error)
{
    const QFileInfo info(path);
    const QString beside =
        QString("%1/.%2.%3.part").arg(info.path(), info.fileName()).arg(QCoreApplication::applicationPid());
    int code = converter.exportItems(items, beside);
    if (code != cConverterOk) {
        *error = cannotWrite(path, TImportDriver::reason(code));
    } else if (std::rename(QFile::encodeName(beside).constData(), QFile::encodeName(path).constData()) != 0) {
        code = cConverterFileNotOpened;
        *error = cannotWrite(path, qt_error_string());
    }
    if (code != cConverterOk)
        QFile::remove(beside);
    return code;
}
