#include "KeysPage.h"

#include "TActionTable.h"
#include "TGuideWindow.h"
#include "TMenuWalk.h"
#include "TShellController.h"
#include "TShortcuts.h"
#include "WMainWindow.h"

#include <QAction>
#include <QMenuBar>
#include <QVector>

namespace {

constexpr char cHead[] =
    "# Keys\n\n"
    "[Guide](README.md)\n\n"
    "This page is written by `scripts/guide.sh` from the program itself. Keys of **Plot** work while the page has the\n"
    "focus (click it, or press Escape in a dock) and no text is typed; those of **Everywhere** work in the whole "
    "window.\n"
    "Help > Keyboard... (Ctrl+F2) shows and changes them.\n\n"
    "Beside these: arrows move (Left, Right pan by a tenth; Up, Down choose the previous or next spectrum), Tab and\n"
    "Shift+Tab walk the marks, Return opens the highlighted mark, PgUp and PgDown turn the pages, Escape gives up what "
    "is\n"
    "under way, then the mode, then the highlighted marks. Space held down pans.\n\n"
    "Modes work without a mouse: C (Crosshair) puts a pointer on the curve, and other modes take it over. Arrows move\n"
    "it (with Shift by ten), Return clicks, Shift+Return holds the button down until the next Return. Alt alone shows\n"
    "digits at the tabs of the ribbon, and then a letter at each button.\n";

QString row(const TMenuEntry &entry)
{
    QStringList keys;
    for (const QKeySequence &key : entry.fAction->shortcuts())
        keys.append('`' + key.toString(QKeySequence::PortableText) + '`');
    const QString path = (entry.fPath + QStringList(TMenuWalk::plainText(entry.fAction->text()))).join(" > ");
    return QString("| %1 | %2 |\n").arg(keys.join(", "), path);
}

} // namespace

QString KeysPage::markdown(TGuideWindow &guide)
{
    QString plot;
    QString everywhere;
    for (const TMenuEntry &entry : guide.window().shell().shortcuts().entries()) {
        if (!entry.fAction->shortcuts().isEmpty())
            (TShortcuts::isPlotAction(*entry.fAction) ? plot : everywhere) += row(entry);
    }
    const QString head = "| Key | Does |\n| --- | --- |\n";
    return QString(cHead) + "\n## Plot\n\n" + head + plot + "\n## Everywhere\n\n" + head + everywhere;
}
