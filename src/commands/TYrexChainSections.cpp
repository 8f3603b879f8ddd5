#include "TYrexChainSections.h"

#include "TYrexProcIds.h"

#include <QVariantMap>

namespace {

/// The chain as the walk looks at it.
class TChainView
{
public:
    explicit TChainView(const QVariantList &actions)
    {
        for (const QVariant &action : actions) {
            const QVariantMap map = action.toMap();
            const int id = map.value(cKeyOpId).toInt();
            fApplied.append(map.value(cKeyApply).toBool());
            fStack.append(id == cProcScatterCorrection || id == cProcQuotientNormalization);
            fShowOnly.append(id == cProcAutoBaseline && map.value(cKeyBaselineShowOnly).toBool());
        }
    }
    int last() const { return fApplied.size() - 1; }
    bool isApplied(int index) const { return fApplied.at(index); }
    bool isStack(int index) const { return fStack.at(index); }
    bool isShownOnly(int index) const { return fApplied.at(index) && fShowOnly.at(index); }
    /// The last applied action, or the first applied one that only shows; -1 when nothing is applied.
    int stop() const
    {
        int stop = -1;
        for (int i = 0; i <= last(); ++i) {
            if (isApplied(i))
                stop = i;
            if (isShownOnly(i))
                break;
        }
        return stop;
    }

private:
    QVector<bool> fApplied;
    QVector<bool> fStack;
    QVector<bool> fShowOnly;
};

} // namespace

QVector<TYrexChainSection> yrexChainSections(const QVariantList &actions)
{
    const TChainView chain(actions);
    const int last = chain.last();
    const int stop = chain.stop();
    if (last < 0)
        return {};
    if (stop < 0)
        return {{0, last, -1}};
    QVector<TYrexChainSection> sections;
    int from = 0;
    for (int i = 0; i <= last; ++i) {
        if (i == last || chain.isShownOnly(i)) {
            if (chain.isApplied(i))
                sections.append({from, last, -1});
            return sections;
        }
        if (!chain.isApplied(i))
            continue;
        const bool isStack = chain.isStack(i);
        const bool nextIsOrdinary = chain.isApplied(i + 1) && !chain.isStack(i + 1);
        if (!isStack && nextIsOrdinary)
            continue; // ordinary actions in a row run together
        const int to = i == stop ? last : i;
        sections.append({from, to, isStack ? i : -1});
        if (to == last)
            return sections;
        from = i + 1;
    }
    return sections;
}
