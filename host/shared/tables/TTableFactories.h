#pragma once

#include <QMap>
#include <QPair>
#include <QString>
#include <functional>

class TCanvasItem;
class TTableProperties;
struct TTableContent;

/// Who reads items for the tables that stand on pages: by the type text of a table's properties and by the table that
/// they name.
class TTableFactories
{
public:
    /// False, with the content as it was, for an item that has no such table.
    using TFactory = std::function<bool(const TTableProperties &, TCanvasItem *, TTableContent &)>;

    /// Takes the place of one that stands there.
    void add(const QString &type, const QString &table, const TFactory &factory);
    /// The same for both types of table.
    void add(const QString &table, const TFactory &factory);
    void clear() { fFactories.clear(); }
    bool fill(const TTableProperties &properties, TCanvasItem *item, TTableContent &content) const;

private:
    QMap<QPair<QString, QString>, TFactory> fFactories;
};
