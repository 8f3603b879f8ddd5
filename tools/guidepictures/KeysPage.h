#pragma once

#include <QString>

class TGuideWindow;

namespace KeysPage {

/// The page of the guide with all keys, in Markdown: as the actions of the window have them, by menu.
QString markdown(TGuideWindow &guide);

} // namespace KeysPage
