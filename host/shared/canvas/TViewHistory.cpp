#include "canvas/TViewHistory.h"

void TViewHistory::append(QVector<TStep> &steps, const TStep &step)
{
    if (steps.size() == cMaxEntries)
        steps.removeFirst();
    steps.append(step);
}

bool TViewHistory::push(const TViewHistoryEntry &view, const QString &text, bool mergeable, int gesture)
{
    fForward.clear();
    if (mergeable && gesture != 0 && !fBack.isEmpty()) {
        const TStep &last = fBack.last();
        if (last.mergeable && last.gesture == gesture && last.text == text)
            return false;
    }
    append(fBack, {view, text, mergeable, gesture});
    return true;
}

void TViewHistory::pop()
{
    if (!fBack.isEmpty())
        fBack.removeLast();
}

bool TViewHistory::goBack(const TViewHistoryEntry &present, TViewHistoryEntry &view)
{
    if (fBack.isEmpty())
        return false;
    const TStep step = fBack.takeLast();
    append(fForward, {present, step.text, false, 0});
    view = step.view;
    return true;
}

bool TViewHistory::goForward(const TViewHistoryEntry &present, TViewHistoryEntry &view)
{
    if (fForward.isEmpty())
        return false;
    const TStep step = fForward.takeLast();
    append(fBack, {present, step.text, false, 0});
    view = step.view;
    return true;
}
