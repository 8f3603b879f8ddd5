#pragma once

class TCanvasItem;
class TCanvasTable;
class TCommandHistory;
class TTableProperties;

/// Tables on pages.
namespace TablePlacing {

/// Puts a table of an item on its page, as one step: where there is free room, else in the corner where least is
/// drawn. Null, with nothing done, for an item that stands on no page or has no such table.
TCanvasTable *place(TCanvasItem *source, const TTableProperties &properties, TCommandHistory &history);

} // namespace TablePlacing
