#include "jcamp/TBaseJCAMPConverter.h"

#include "jcamp/JCAMPUtils.h"
#include "jcamp/TJCAMPBlock.h"
#include "jcamp/TJCAMPExportData.h"

TBaseJCAMPConverter::TBaseJCAMPConverter(IConverter *converter)
    : fConverter(converter)
{
}

TBaseJCAMPConverter::~TBaseJCAMPConverter() = default;

void TBaseJCAMPConverter::beginExport(const TCanvasItemList &items)
{
    fExportItems = items;
}

void TBaseJCAMPConverter::endExport()
{
    fExportItems.clear();
}

void TBaseJCAMPConverter::clear()
{
    fAllImportedItems.clear();
    setBlock(nullptr, QString());
}

void TBaseJCAMPConverter::setBlock(TJCAMPBlock *block, const QString &fileName)
{
    fBlock = block;
    fFileName = fileName;
}

bool TBaseJCAMPConverter::exportItem(QList<TJCAMPExportData> &spectra, int index)
{
    ICanvasItem *item = fExportItems.value(index);
    const int before = spectra.size();
    TJCAMPExportData data;
    for (int i = 0; item && exportData(item, i, data); ++i) {
        if (i == 0)
            writeItemMetaData(item, data);
        spectra.append(data);
        data = TJCAMPExportData();
    }
    return spectra.size() > before;
}

QVariantMap TBaseJCAMPConverter::metaData(TJCAMPBlock *block, const QStringList &keys)
{
    QVariantMap map;
    for (const QString &key : keys) {
        bool found = false;
        const QByteArray text = block ? block->getString(key.toLatin1().constData(), found) : QByteArray();
        if (found)
            map.insert(key, Utils::JCAMP::textOf(text));
    }
    return map;
}
