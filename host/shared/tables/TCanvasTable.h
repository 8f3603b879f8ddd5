#pragma once

#include "canvas/TCanvasItem.h"
#include "tables/TTableContent.h"
#include "tables/TTableProperties.h"

#include <functional>

/// A table or a chart on a page. It is linked to an item whose values it shows and follows; where that is gone, or
/// where nobody can read it, the last values stay.
class TCanvasTable : public TCanvasItem
{
public:
    static constexpr int cRtti = 107;
    static const QByteArray cSourceRole; // of the link to the item whose values it shows
    using TReader = std::function<bool(const TTableProperties &, TCanvasItem *, TTableContent &)>;

    TCanvasTable();

    /// Who reads items for tables; none by default.
    static void setReader(const TReader &reader);

    const TTableProperties &tableProperties() const { return fTable; }
    void setTableProperties(const TTableProperties &properties);
    /// Shows that item from now on.
    void setSource(TCanvasItem *source);
    /// The item that it shows; null when that does not stand in the document.
    TCanvasItem *source() const;
    /// Up to date.
    const TTableContent &content() const;
    /// The room that it wants, in canvas units.
    QSizeF naturalSize() const;
    /// How it is drawn; not stored.
    void setDarkPaper(bool dark);
    bool isOnDarkPaper() const { return fIsDark; }

    QString title(bool plotTitle) const override;
    QString type() const override;
    void store(TDataStream &stream) const override;
    void load(TDataStream &stream) override;
    void paint(QPainter &painter) override;
    void update() override;
    void linkedItemChanged(TCanvasItem *item) override;
    void linkedItemLeaves(TCanvasItem *item) override;

private:
    void readFrom(TCanvasItem *item) const;
    void loadPlace(TDataStream &stream);
    void paintChart(QPainter &painter, const QColor &ink, const QColor &paper);

    TTableProperties fTable;
    mutable TTableContent fContent;
    mutable bool fIsStale = false;
    bool fIsDark = false;
    QByteArray fTail;
};
