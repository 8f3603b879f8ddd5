#include "canvas/TDocument.h"
#include "commands/TCmdPages.h"
#include "script/TStepCall.h"
#include "script/steps/HostSteps.h"

namespace {

constexpr double cLongest = 50000.0; // canvas units, 5 m

TCommand *newPage(TStepCall &call)
{
    return TCmdPages::newPage(&call.document(), call.integer("at", call.document().pages().size()));
}

TCommand *deletePages(TStepCall &call)
{
    return TCmdPages::deletePages(&call.document(), call.pages("pages"));
}

TCommand *duplicatePages(TStepCall &call)
{
    return TCmdPages::duplicatePages(&call.document(), call.pages("pages"));
}

TCommand *movePages(TStepCall &call)
{
    const QList<TPage *> pages = call.pages("pages");
    return TCmdPages::movePages(&call.document(), pages, call.integer("before"));
}

TCommand *setPageTitle(TStepCall &call)
{
    TPage *page = call.page("page");
    return TCmdPages::renamePage(&call.document(), page, call.text("title"));
}

TCommand *setPageSize(TStepCall &call)
{
    const QList<TPage *> pages = call.pages("pages");
    const QSizeF size(call.number("width"), call.number("height"));
    const QVariantMap given = call.map("margins");
    const auto margin = [&given](const char *side) { return given.value(side).toDouble(); };
    const QMarginsF margins(margin("left"), margin("top"), margin("right"), margin("bottom"));
    const auto isLength = [](double length, double least) { return length >= least && length <= cLongest; };
    if (!isLength(size.width(), 1.0) || !isLength(size.height(), 1.0))
        call.fail("width", TStepCall::tr("there is no page of such a size"));
    for (const double each : {margins.left(), margins.top(), margins.right(), margins.bottom()}) {
        if (!isLength(each, 0.0))
            call.fail("margins", TStepCall::tr("expected left, top, right and bottom"));
    }
    return TCmdPages::resizePages(&call.document(), pages, size, margins);
}

} // namespace

QVector<TStepKind> pageSteps()
{
    return {
        {"newPage", "{at}", "Adds an empty page at a place, else behind the others.", newPage},
        {"deletePages", "{pages: [page]}", "Deletes pages with all that is on them; one page stays.", deletePages},
        {"duplicatePages", "{pages: [page]}", "Puts a copy behind each page.", duplicatePages},
        {"movePages", "{pages: [page], before}", "Moves pages to stand before the page that is at a place.", movePages},
        {"setPageTitle", "{page, title}", "Names a page.", setPageTitle},
        {"setPageSize", "{pages: [page], width, height, margins: {left, top, right, bottom}}",
         "Sets the size of pages, in units of 0.1 mm.", setPageSize},
    };
}
