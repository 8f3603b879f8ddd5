#include "TDocumentState.h"

#include "TCanvasYrexSpectrum.h"
#include "TYrexParamsParsers.h"
#include "canvas/TDocument.h"
#include "canvas/TPage.h"
#include "params/TParamsParser.h"
#include "params/TParamsParsers.h"

namespace {

constexpr int cCsv = 37;

QString textOf(const QRectF &rect)
{
    return QString("%1 %2 %3 %4").arg(rect.x()).arg(rect.y()).arg(rect.width()).arg(rect.height());
}

} // namespace

TDocumentState::TDocumentState(const TDocument &document, TIds ids)
{
    const auto idText = [ids](const QUuid &id) { return ids == cWithIds ? id.toString() : QString(); };
    fLayout.append(QString("%1 templates").arg(yrexParamsParsers().value(cCsv)->templates().count()));
    for (const TPage *page : document.pages()) {
        fLayout.append("page " + idText(page->id()) + page->title() + ' ' + textOf(QRectF(QPointF(), page->size())) +
                       ' ' + textOf(page->contentRect()));
        for (TCanvasItem *item : page->items()) {
            fLayout.append("item " + idText(item->uniqueId()) + ' ' + textOf(item->rect()));
            fItems.append(TItemState(*yrexItem(item), ids == cWithIds));
        }
    }
}

QString TDocumentState::difference(const TDocumentState &other) const
{
    if (other.fLayout != fLayout)
        return QString(":\n    %1\n    is %2").arg(fLayout.join("\n    "), other.fLayout.join("\n    "));
    for (int i = 0; i < fItems.size(); ++i) {
        const QString difference = fItems.at(i).difference(other.fItems.at(i));
        if (!difference.isEmpty())
            return QString(", item %1:\n%2").arg(i).arg(difference);
    }
    return QString();
}
