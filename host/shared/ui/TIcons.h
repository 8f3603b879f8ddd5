#pragma once

#include <QIcon>

class QString;

/// Icons of actions. Drawings follow the palette: their ink is light where windows are dark, at the time of painting,
/// so that a change of the theme needs no new icons.
namespace TIcons {

/// The icon that a mark-up file names. A path that begins with "::/" is looked up in ":/themes/light" or
/// ":/themes/dark" and then in ":/"; a drawing (.svg) beside a picture (.png) wins. Null when there is none.
QIcon load(const QString &path);

} // namespace TIcons
