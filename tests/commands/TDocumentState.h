#pragma once

#include "TItemState.h"

#include <QStringList>
#include <QVector>

class TDocument;

/// Pages and their items, and the states of all items.
class TDocumentState
{
public:
    TDocumentState() = default;
    /// Two documents that came to the same by different ways have other ids, which a comparison may leave out.
    enum TIds { cWithIds, cWithoutIds };
    explicit TDocumentState(const TDocument &document, TIds ids = cWithIds);

    /// What differs, in words; empty for equal states.
    QString difference(const TDocumentState &other) const;

private:
    QStringList fLayout;
    QVector<TItemState> fItems;
};
