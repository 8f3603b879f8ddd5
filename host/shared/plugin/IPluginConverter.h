#pragma once

#include <QList>
#include <QStringList>
#include <QtPlugin>

class ICanvas;
class IConverter;
class TCanvasItemList;

/// The file formats of a plug-in.
class IPluginConverter
{
public:
    virtual ~IPluginConverter() = default;
    /// Imports through the first converter that accepts the file; the code of the reader, 4 when none does.
    virtual int importFile(const QString &fileName, const QString &filter, ICanvas *page) = 0;
    /// The first import filter of each converter.
    virtual QStringList importFilters() const = 0;
    virtual QStringList exportFilters() const = 0;
    virtual int exportItems(const TCanvasItemList &items, const QString &fileName, const QString &filter) = 0;
    /// In the order in which a file is offered to them; owned by the plug-in.
    virtual QList<IConverter *> converters() const = 0;
};

#define cIPluginConverterIID "com.dornveld.kelmora-qt.IPluginConverter/1.0"
Q_DECLARE_INTERFACE(IPluginConverter, cIPluginConverterIID)
