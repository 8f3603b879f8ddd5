#include "commands/TStackState.h"

#include "contexts/IStackedItemCtx.h"
#include "stream/TDataStream.h"

#include <QHash>

namespace {

QVector<int> readIndices(TDataStream &stream, const QHash<quint32, int> &indexOfId)
{
    QVector<int> indices;
    const int count = stream.readCount(int(sizeof(quint32)));
    for (int i = 0; i < count && stream.isGood(); ++i) {
        quint32 id = 0;
        stream >> id;
        if (indexOfId.contains(id))
            indices.append(indexOfId.value(id));
    }
    return indices;
}

} // namespace

void TStackState::capture(const IStackedItemCtx &stack)
{
    QHash<quint32, int> indexOfId;
    for (int i = 0; i < stack.count(); ++i)
        indexOfId.insert(quint32(stack.idOf(i)), i);
    QByteArray bytes;
    {
        TDataStream out(&bytes, QIODevice::WriteOnly);
        stack.storeOrder(out);
    }
    TDataStream in(bytes);
    fOrder = readIndices(in, indexOfId);
    fHidden = readIndices(in, indexOfId);
    fSelected.clear();
    for (const quint32 id : stack.ids(false, true))
        fSelected.append(indexOfId.value(id));
    fActive = stack.activeIndex();
}

void TStackState::restore(IStackedItemCtx &stack) const
{
    stack.setVisibleRange(0, stack.count() - 1, true);
    for (const int index : fHidden)
        stack.setVisible(index, false);
    stack.move(fOrder);
    stack.setSelected(fSelected);
    stack.setActiveIndex(fActive);
}
