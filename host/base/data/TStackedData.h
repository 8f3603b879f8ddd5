#pragma once

#include "data/IStackedListNotifier.h"

#include <QHash>
#include <QList>
#include <QPair>
#include <QSet>
#include <QStringList>
#include <QVector>
#include <algorithm>

/// How a stack learns the class text of one of its spectra: specialise with
/// `static QString classText(const TSpectrum &)`, trimmed.
template <typename TList>
struct TStackedTraits;

/// An owned list of spectra with what a stack needs beyond it: stable ids, the current, hidden and deselected spectra,
/// the display order and the grouping by class. One spectrum and many are the same structure.
///
/// An index is a position in the list, an id is issued once and survives moving and deletion, a display position is
/// the row in which a spectrum is shown.
template <typename TList>
class TStackedData
{
public:
    using TPointer = typename TList::value_type;
    using TGroup = QPair<QString, QList<TPointer>>; // class text, its spectra

    static constexpr int cGroupedDisplayMode = 7;
    static constexpr quint32 cLargestStoredId = 0x3fffffff; // leaves room for as many new ids in an int

    TStackedData()
        : fItems(new TList)
    {
    }
    virtual ~TStackedData()
    {
        qDeleteAll(*fItems);
        delete fItems;
    }
    TStackedData(const TStackedData &) = delete;
    TStackedData &operator=(const TStackedData &) = delete;

    const TList &items() const { return *fItems; }
    int count() const { return fItems->size(); }
    bool isEmpty() const { return fItems->isEmpty(); }
    bool isStacked() const { return count() >= 2; }
    bool contains(int index) const { return index >= 0 && index < count(); }
    /// The spectrum at an index, or null.
    TPointer at(int index) const { return contains(index) ? fItems->at(index) : nullptr; }
    const QList<quint32> &ids() const { return fIds; }
    /// The id at an index; 0 for an index out of range.
    quint32 idOf(int index) const { return index >= 0 && index < fIds.size() ? fIds.at(index) : 0; }
    int indexOfId(quint32 id) const { return fIds.indexOf(id); }
    int lastId() const { return fLastId; }
    const QList<quint32> &order() const { return fOrder; }
    const QList<quint32> &hidden() const { return fHidden; }
    const QSet<quint32> &deselected() const { return fDeselected; }
    int grouped() const { return fGrouped; }
    int anchor() const { return fAnchor; }
    void setAnchor(int anchor) { fAnchor = anchor; }

    /// Takes ownership; the new spectrum stands last and becomes current if there was none.
    void append(TPointer spectrum)
    {
        const int id = fLastId + 1;
        fItems->append(spectrum);
        fIds.append(quint32(id));
        fOrder.append(quint32(id)); // the order is normalised already, and normalising again costs a walk per spectrum
        fLastId = id;
        if (!contains(fCurrent))
            setCurrent(0);
        notifyList();
    }

    /// Takes ownership of the spectra, which stand from `position` on (the end for a position beyond it).
    void insertAt(int position, const TList &spectra)
    {
        int at = qBound(0, position, count());
        const int first = at;
        for (TPointer spectrum : spectra) {
            fItems->insert(at, spectrum);
            fIds.insert(at, quint32(++fLastId));
            ++at;
        }
        fAnchor = fLastId;
        normaliseOrder();
        setCurrent(first);
        notifyList();
    }

    /// Takes a spectrum out without deleting it; nothing for an index out of range.
    void removeAt(int index)
    {
        if (!contains(index))
            return;
        const quint32 id = fIds.at(index);
        fItems->removeAt(index);
        fIds.removeAt(index);
        fOrder.removeOne(id); // all that normalising would do
        fHidden.removeAll(id);
        fDeselected.remove(id);
        if (int(id) >= fLastId)
            fLastId = largestId();
        const int old = fCurrent;
        int next = old;
        if (old > index)
            next = old - 1;
        else if (old == index)
            next = 0;
        if (isEmpty())
            fCurrent = -1;
        else if (index <= old)
            setCurrent(next);
        notifyList();
    }

    /// Takes a spectrum out without deleting it.
    void removeSpectrum(TPointer spectrum) { removeAt(fItems->indexOf(spectrum)); }

    /// Puts a spectrum in the place of another, which keeps its id and is not deleted.
    void replaceAt(int index, TPointer spectrum)
    {
        if (!contains(index))
            return;
        (*fItems)[index] = spectrum;
        notifyList();
    }

    /// Makes a spectrum current; a hidden one passes the honour to the next visible one, cyclically. An index out of
    /// range is ignored.
    void setCurrent(int index)
    {
        if (!contains(index))
            return;
        int next = index;
        for (int step = 0; step < count() && isHidden(next); ++step)
            next = (next + 1) % count();
        fCurrent = next;
        fAnchor = next;
        const QList<IStackedListNotifier *> notifiers = fNotifiers;
        for (IStackedListNotifier *notifier : notifiers)
            notifier->currentChanged();
    }

    /// The index of the current spectrum; negative for an empty stack.
    int current() const { return fCurrent; }
    TPointer currentSpectrum() const { return at(fCurrent); }

    bool isHidden(int index) const { return contains(index) && fHidden.contains(fIds.at(index)); }
    bool isDeselected(int index) const { return contains(index) && fDeselected.contains(fIds.at(index)); }

    void setHidden(int index, bool hide)
    {
        if (!contains(index) || isHidden(index) == hide)
            return;
        if (hide)
            fHidden.append(fIds.at(index));
        else
            fHidden.removeAll(fIds.at(index));
    }

    void setDeselected(int index, bool deselect)
    {
        if (!contains(index))
            return;
        if (deselect)
            fDeselected.insert(fIds.at(index));
        else
            fDeselected.remove(fIds.at(index));
    }

    /// Sets the display order; ids that are missing are appended, foreign ones dropped.
    void setOrder(const QList<quint32> &order)
    {
        fOrder = order;
        normaliseOrder();
    }

    /// The indices that are not deselected, ascending. With nothing selected and `fallback`, the current index.
    QVector<int> selectedIndices(bool visibleOnly, bool fallback) const
    {
        const QSet<quint32> hidden = visibleOnly ? hiddenSet() : QSet<quint32>();
        QVector<int> indices;
        for (int i = 0; i < fIds.size(); ++i) {
            if (!fDeselected.contains(fIds.at(i)) && !hidden.contains(fIds.at(i)))
                indices.append(i);
        }
        if (indices.isEmpty() && fallback)
            indices.append(fCurrent);
        return indices;
    }

    /// The indices that are not hidden, ascending.
    QVector<int> visibleIndices() const
    {
        const QSet<quint32> hidden = hiddenSet();
        QVector<int> indices;
        for (int i = 0; i < count(); ++i) {
            if (!hidden.contains(fIds.at(i)))
                indices.append(i);
        }
        return indices;
    }

    /// The spectra that are not hidden, in display order.
    QList<TPointer> visibleSpectra() const
    {
        const QSet<quint32> hidden = hiddenSet();
        QHash<quint32, TPointer> byId;
        for (int i = 0; i < count(); ++i)
            byId.insert(fIds.at(i), fItems->at(i));
        QList<TPointer> spectra;
        for (const quint32 id : fOrder) {
            if (!hidden.contains(id))
                spectra.append(byId.value(id));
        }
        return spectra;
    }

    /// The spectra filed by their class text, classes in order of first appearance. An empty text is a class too.
    QVector<TGroup> classGroups(bool visibleOnly) const
    {
        QVector<TGroup> groups;
        QHash<QString, int> numbers;
        const QList<TPointer> spectra = visibleOnly ? visibleSpectra() : QList<TPointer>(*fItems);
        for (TPointer spectrum : spectra) {
            const QString text = TStackedTraits<TList>::classText(*spectrum);
            if (!numbers.contains(text)) {
                numbers.insert(text, groups.size());
                groups.append(TGroup(text, {}));
            }
            groups[numbers.value(text)].second.append(spectrum);
        }
        return groups;
    }

    /// The row in which a spectrum is shown, or -1. Grouped: the number of its class.
    int displayPositionOf(int index) const
    {
        if (fGrouped == 1)
            return groupOf(at(index));
        if (!contains(index))
            return -1;
        return fHidden.isEmpty() ? fOrder.indexOf(fIds.at(index)) : visibleSpectra().indexOf(fItems->at(index));
    }

    /// displayPositionOf every index, in one walk.
    QVector<int> displayPositions() const
    {
        QHash<TPointer, int> rows;
        if (fGrouped == 1) {
            const QVector<TGroup> groups = classGroups(false);
            for (int group = 0; group < groups.size(); ++group) {
                for (TPointer spectrum : groups.at(group).second)
                    rows.insert(spectrum, group);
            }
        } else {
            const QList<TPointer> shown = visibleSpectra();
            for (int row = 0; row < shown.size(); ++row)
                rows.insert(shown.at(row), row);
        }
        QVector<int> positions;
        for (TPointer spectrum : *fItems)
            positions.append(rows.value(spectrum, -1));
        return positions;
    }

    /// Drops ids that are gone from the order and appends those that are missing.
    void normaliseOrder()
    {
        const QSet<quint32> known(fIds.begin(), fIds.end());
        QList<quint32> order;
        QSet<quint32> placed;
        order.reserve(fIds.size());
        const auto place = [&](quint32 id) {
            if (known.contains(id) && !placed.contains(id)) {
                order.append(id);
                placed.insert(id);
            }
        };
        for (const quint32 id : qAsConst(fOrder))
            place(id);
        for (const quint32 id : qAsConst(fIds))
            place(id);
        fOrder = order;
    }

    void addNotifier(IStackedListNotifier *notifier)
    {
        if (!fNotifiers.contains(notifier))
            fNotifiers.append(notifier);
    }
    void removeNotifier(IStackedListNotifier *notifier) { fNotifiers.removeAll(notifier); }

    /// Grouped for the display mode that shows a row for each class, not for any other.
    void setGrouped(int displayMode) { fGrouped = displayMode == cGroupedDisplayMode ? 1 : 0; }

    /// Everything but the spectra as a document holds it, for the data object's load. Lists that do not fit the
    /// spectra are mended: every spectrum ends with an id of its own. The current index, which no stream holds, stays
    /// where it can, so that reading a snapshot back does not move it.
    void restore(const TList &spectra, const QList<quint32> &ids, const QList<quint32> &hidden,
                 const QSet<quint32> &deselected, const QList<quint32> &order, int grouped)
    {
        qDeleteAll(*fItems);
        *fItems = spectra;
        fIds = ids;
        fHidden = hidden;
        fDeselected = deselected;
        fOrder = order;
        fGrouped = grouped;
        mendIds();
        fLastId = largestId();
        normaliseOrder();
        const int current = contains(fCurrent) ? fCurrent : 0;
        fCurrent = -1;
        fAnchor = -1;
        setCurrent(current);
    }

private:
    QSet<quint32> hiddenSet() const { return QSet<quint32>(fHidden.begin(), fHidden.end()); }

    int largestId() const
    {
        const auto largest = std::max_element(fIds.begin(), fIds.end());
        return largest == fIds.end() ? -1 : int(*largest);
    }

    void mendIds()
    {
        const QSet<quint32> distinct(fIds.begin(), fIds.end());
        const bool sound = distinct.size() == fIds.size() && fIds.size() == count() &&
                           std::all_of(fIds.begin(), fIds.end(), [](quint32 id) { return id <= cLargestStoredId; });
        if (!sound) {
            fIds.clear();
            for (int i = 0; i < count(); ++i)
                fIds.append(quint32(i));
        }
        const QSet<quint32> known(fIds.begin(), fIds.end());
        QList<quint32> hidden;
        QSet<quint32> listed;
        for (const quint32 id : qAsConst(fHidden)) {
            if (!known.contains(id) || listed.contains(id))
                continue;
            hidden.append(id);
            listed.insert(id);
        }
        fHidden = hidden;
        fDeselected.intersect(known);
    }

    int groupOf(TPointer spectrum) const
    {
        if (!spectrum)
            return -1;
        const QVector<TGroup> groups = classGroups(false);
        for (int i = 0; i < groups.size(); ++i) {
            if (groups.at(i).second.contains(spectrum))
                return i;
        }
        return -1;
    }

    void notifyList()
    {
        const QList<IStackedListNotifier *> notifiers = fNotifiers;
        for (IStackedListNotifier *notifier : notifiers)
            notifier->listChanged();
    }

    TList *fItems;
    QList<IStackedListNotifier *> fNotifiers;
    int fCurrent = -1;
    int fAnchor = -1;
    QList<quint32> fIds;
    int fLastId = -1;
    QList<quint32> fHidden;
    QSet<quint32> fDeselected;
    QList<quint32> fOrder;
    int fGrouped = 0;
};
