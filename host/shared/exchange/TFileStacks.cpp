#include "exchange/TFileStacks.h"

#include "canvas/TCanvasItem.h"
#include "exchange/TScratchImport.h"
#include "plugin/IPluginGathering.h"

#include <algorithm>

TFileStacks::TFileStacks(const QList<QObject *> &plugins)
    : fPlugins(plugins)
{
}

TFileStacks::~TFileStacks() = default;

void TFileStacks::add(std::unique_ptr<TScratchImport> file)
{
    fFiles.push_back(std::move(file));
}

QList<TFileStacks::TPart> TFileStacks::parts() const
{
    QList<TPart> parts;
    for (const std::unique_ptr<TScratchImport> &file : fFiles) {
        for (ICanvasItem *entry : file->result().fItems) {
            TPart part{canvasItem(entry), file.get(), nullptr, QString()};
            for (QObject *plugin : fPlugins) {
                auto *gathering = qobject_cast<IPluginGathering *>(plugin);
                const QString unit = gathering ? gathering->horzUnitOf(part.fItem) : QString();
                if (unit.isEmpty())
                    continue;
                part.fPlugin = gathering;
                part.fUnit = unit;
                break;
            }
            parts.append(part);
        }
    }
    return parts;
}

TFileStacks::TStack TFileStacks::gather(const QList<TPart> &parts) const
{
    TStack stack;
    stack.fUnit = parts.first().fUnit;
    QVariantMap sums;
    TCanvasItemList items;
    for (const TPart &part : parts) {
        items.append(part.fItem);
        if (stack.fPaths.contains(part.fFile->path()))
            continue;
        stack.fPaths.append(part.fFile->path());
        const QVariantMap own = part.fFile->provenance().value("md5sum").toMap();
        for (auto it = own.constBegin(); it != own.constEnd(); ++it)
            sums.insert(it.key(), it.value());
    }
    stack.fProvenance = {{"Filename", stack.fPaths.join("; ")}, {"md5sum", sums}};
    TCanvasItem *gathered = parts.first().fPlugin ? parts.first().fPlugin->gather(items) : nullptr;
    if (gathered) {
        stack.fItems = {gathered};
        return stack;
    }
    for (const TPart &part : parts)
        part.fFile->page().takeItem(part.fItem);
    stack.fItems = items;
    return stack;
}

QList<TFileStacks::TStack> TFileStacks::take()
{
    QList<QList<TPart>> groups;
    for (const TPart &part : parts()) {
        const auto fits = [&part](const QList<TPart> &group) {
            return part.fPlugin && group.first().fPlugin == part.fPlugin && group.first().fUnit == part.fUnit;
        };
        const auto found = std::find_if(groups.begin(), groups.end(), fits);
        if (found == groups.end())
            groups.append(QList<TPart>{part});
        else
            found->append(part);
    }
    QList<TStack> stacks;
    for (const QList<TPart> &group : qAsConst(groups))
        stacks.append(gather(group));
    fFiles.clear();
    QStringList paths;
    for (const TStack &stack : qAsConst(stacks))
        paths += stack.fPaths;
    for (TStack &stack : stacks) {
        const auto isHere = [&paths](const QString &path) { return paths.count(path) == 1; };
        stack.fIsWhole = std::all_of(stack.fPaths.constBegin(), stack.fPaths.constEnd(), isHere);
    }
    return stacks;
}
