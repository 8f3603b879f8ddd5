// The persistence of TYrexSpecDataObj. The order of the items is part of the document file format.
#include "TYrexSpecDataObj.h"

#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"

namespace {

constexpr int cMinRecordSize = 64; // the smallest record has more bytes than that in its block headers alone

template <typename TContainer>
void writeIds(TDataStream &stream, const TContainer &ids)
{
    stream << qint32(ids.size());
    for (const quint32 id : ids)
        stream << id;
}

QList<quint32> readIds(TDataStream &stream)
{
    QList<quint32> ids;
    const int count = stream.readCount(int(sizeof(quint32)));
    for (int i = 0; i < count && stream.isGood(); ++i) {
        quint32 id = 0;
        stream >> id;
        ids.append(id);
    }
    return stream.isGood() ? ids : QList<quint32>();
}

/// The deselected ids in the order of the ids, so that equal stacks give equal bytes.
QList<quint32> sortedDeselected(const TYrexStack &stack, bool selected)
{
    QList<quint32> ids;
    for (const quint32 id : stack.ids()) {
        if (stack.deselected().contains(id) != selected)
            ids.append(id);
    }
    return ids;
}

} // namespace

void TYrexSpecDataObj::storeBody(TDataStream &stream) const
{
    const bool anyDeselected = !fStack.deselected().isEmpty();
    writeIds(stream, fStack.ids());
    writeIds(stream, fStack.hidden());
    // readers without the block of deselected ids go by this list
    writeIds(stream, anyDeselected ? sortedDeselected(fStack, true) : QList<quint32>());
    writeIds(stream, fStack.order());
    {
        TDataStreamAdaptor selection(stream);
        selection.startStore();
        writeIds(stream, sortedDeselected(fStack, false));
        TDataStreamAdaptor mode(stream);
        mode.startStore();
        stream << qint32(fStack.grouped());
        {
            TDataStreamAdaptor empty(stream);
            empty.startStore();
        }
        mode.endStore();
        selection.endStore();
    }
    {
        TDataStreamAdaptor spectra(stream);
        spectra.startStore();
        stream << qint32(fStack.count());
        for (const TYrexSpectrum *spectrum : fStack.items())
            spectrum->store(stream);
        spectra.endStore();
    }
    TDataStreamAdaptor empty(stream);
    empty.startStore();
}

void TYrexSpecDataObj::loadSelection(TDataStream &stream, const QList<quint32> &ids, const QList<quint32> &selected,
                                     QSet<quint32> &deselected, qint32 &grouped) const
{
    TDataStreamAdaptor selection(stream);
    if (selection.hasData()) {
        {
            TStatusGuard guard(stream);
            const int count = stream.readCount(int(sizeof(quint32)));
            for (int i = 0; i < count && stream.isGood(); ++i) {
                quint32 id = 0;
                stream >> id;
                deselected.insert(id);
            }
            if (!stream.isGood())
                deselected.clear();
        }
        TDataStreamAdaptor mode(stream);
        if (mode.hasData()) {
            stream >> grouped;
            TDataStreamAdaptor(stream).skipData();
        }
        mode.skipData();
    } else if (!selected.isEmpty()) {
        // an older writer kept the selected ids only
        deselected = QSet<quint32>(ids.begin(), ids.end());
        deselected.subtract(QSet<quint32>(selected.begin(), selected.end()));
    }
    selection.skipData();
}

TYrexSpectrumList TYrexSpecDataObj::loadSpectra(TDataStream &stream) const
{
    TYrexSpectrumList spectra;
    TDataStreamAdaptor block(stream);
    if (block.hasData()) {
        const int count = stream.readCount(cMinRecordSize);
        for (int i = 0; i < count && stream.isGood(); ++i) {
            auto *spectrum = new TYrexSpectrum;
            spectrum->load(stream);
            if (!spectra.isEmpty()) // a stack is mostly processed alike
                spectrum->procParams().shareActions(spectra.last()->procParams());
            spectra.append(spectrum);
        }
    }
    block.skipData();
    return spectra;
}

void TYrexSpecDataObj::loadBody(TDataStream &stream)
{
    const QList<quint32> ids = readIds(stream);
    const QList<quint32> hidden = readIds(stream);
    const QList<quint32> selected = readIds(stream);
    const QList<quint32> order = readIds(stream);
    QSet<quint32> deselected;
    qint32 grouped = 0;
    loadSelection(stream, ids, selected, deselected, grouped);
    const TYrexSpectrumList spectra = loadSpectra(stream);
    fStack.restore(spectra, ids, hidden, deselected, order, grouped);
    listChanged();
    TDataStreamAdaptor(stream).skipData();
}
