#include "builtin/TJCAMPPlugin.h"

#include "builtin/TJCAMPFileConverter.h"
#include "consts/Consts.h"

TJCAMPPlugin::TJCAMPPlugin()
{
    setObjectName("jcamp");
    fName = "JCAMP-DX";
    fVersion = "1.0";
    fDate = QDate(2026, 11, 21);
    fBaseId = Consts::Common::jcampPluginBaseID;
    fOrderHint = 0;
}

void TJCAMPPlugin::registerConverters()
{
    fFileConverter = new TJCAMPFileConverter(this);
    fConverters.append(fFileConverter);
}

void TJCAMPPlugin::registerConverter(IConverter *converter)
{
    if (fFileConverter)
        fFileConverter->addBlockConverter(converter);
    else
        delete converter;
}

void TJCAMPPlugin::setExportComments(const QStringList &comments)
{
    if (fFileConverter)
        fFileConverter->setExportComments(comments);
}
