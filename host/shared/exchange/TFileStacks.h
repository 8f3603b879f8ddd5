#pragma once

#include "canvas/TCanvasItemList.h"

#include <QStringList>
#include <QVariantMap>
#include <memory>
#include <vector>

class IPluginGathering;
class QObject;
class TCanvasItem;
class TScratchImport;

/// Files put together: those whose spectra share the horizontal unit become one stacked item.
class TFileStacks
{
public:
    struct TStack
    {
        QString fUnit; // empty for items that no plug-in can gather, each of which stands alone
        QStringList fPaths;
        TCanvasItemList fItems; // the one stack; without a page
        QVariantMap fProvenance;
        bool fIsWhole = true; // its files have parts in no other stack
    };

    explicit TFileStacks(const QList<QObject *> &plugins);
    ~TFileStacks();

    /// Takes a file that was read.
    void add(std::unique_ptr<TScratchImport> file);
    /// The stacks in the order of their first files; their items pass to the caller. Nothing is left here.
    QList<TStack> take();

private:
    struct TPart
    {
        TCanvasItem *fItem;
        TScratchImport *fFile;
        IPluginGathering *fPlugin; // null when none can gather the item
        QString fUnit;
    };

    TStack gather(const QList<TPart> &parts) const;
    QList<TPart> parts() const;

    QList<QObject *> fPlugins;
    std::vector<std::unique_ptr<TScratchImport>> fFiles;
};
