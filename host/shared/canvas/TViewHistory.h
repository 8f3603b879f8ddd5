#pragma once

#include "canvas/TViewHistoryEntry.h"

#include <QString>
#include <QVector>

/// The former views of an item, to go back and forth between them. It lives as long as the item and is not stored.
class TViewHistory
{
public:
    static constexpr int cMaxEntries = 64;

    /// Remembers a view; the oldest goes when there are too many, and those ahead go in any case. Within a gesture (a
    /// number other than 0) only the first of several mergeable views of one text is remembered. Whether it was.
    bool push(const TViewHistoryEntry &view, const QString &text, bool mergeable, int gesture);
    /// Forgets the newest view.
    void pop();
    /// The view to apply when `present` is left backwards (forwards); false, with `view` as it was, at the end.
    bool goBack(const TViewHistoryEntry &present, TViewHistoryEntry &view);
    bool goForward(const TViewHistoryEntry &present, TViewHistoryEntry &view);
    int backCount() const { return fBack.size(); }
    int forwardCount() const { return fForward.size(); }

private:
    struct TStep
    {
        TViewHistoryEntry view;
        QString text;
        bool mergeable = false;
        int gesture = 0;
    };
    static void append(QVector<TStep> &steps, const TStep &step);

    QVector<TStep> fBack; // newest last
    QVector<TStep> fForward;
};
