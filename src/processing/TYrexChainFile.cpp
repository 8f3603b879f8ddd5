#include "TYrexChainFile.h"

#include "TYrexChainCheck.h"
#include "TYrexChainJson.h"
#include "TYrexProcLabels.h"
#include "TYrexProcParams.h"
#include "stream/TDataStream.h"
#include "utils/TFileWriter.h"

#include <QFile>

namespace {

bool loadTemplate(const QByteArray &bytes, TYrexProcParams &params, QString &error)
{
    TYrexProcParams read;
    TDataStream stream(bytes);
    read.readTemplate(stream);
    for (int i = 0; i < read.actionCount(); ++i) {
        const QString problem = TYrexChainCheck::fatalProblem(read.action(i));
        if (!problem.isEmpty()) {
            error = QStringLiteral("action %1 (%2): %3")
                        .arg(i + 1)
                        .arg(TYrexProcLabels::sourceLabel(read.actionId(i)), problem);
            return false;
        }
    }
    params = read;
    return true;
}

} // namespace

bool TYrexChainFile::load(const QString &path, TYrexProcParams &params, QString &error, QStringList &warnings)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        error = file.errorString();
        return false;
    }
    // one byte more than allowed tells a file that is too large, also where its size is not known
    const QByteArray bytes = file.read(cMaxSize + 1);
    if (bytes.size() > cMaxSize) {
        error = QStringLiteral("the file is too large for a chain");
        return false;
    }
    if (bytes.startsWith(TYrexProcParams::templateHeader()))
        return loadTemplate(bytes, params, error);
    return TYrexChainJson::parse(bytes, params, error, warnings);
}

bool TYrexChainFile::save(const QString &path, const TYrexProcParams &params, QString *error)
{
    if (!path.endsWith(QLatin1String(".json"), Qt::CaseInsensitive))
        return params.writeFile(path, error);
    QString why;
    return TFileWriter::write(path, TYrexChainJson::toJson(params.actions()), error ? error : &why);
}
