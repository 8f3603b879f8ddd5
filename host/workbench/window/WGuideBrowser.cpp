#include "WGuideBrowser.h"

#include <QImage>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextTable>
#include <QTimer>

namespace {

constexpr int cMargin = 24;
constexpr int cFitDelay = 150;
constexpr int cCellPadding = 5;
constexpr int cTableMargin = 8;
constexpr int cHeadingMargin = 18;
constexpr int cLineOpacity = 70;
constexpr int cLeastPicture = 64;

/// The name by which links of Markdown call a heading: "Telling units" is #telling-units.
QString headingName(const QString &heading)
{
    QString name;
    for (const QChar c : heading.toLower()) {
        if (c.isLetterOrNumber() || c == '-' || c == '_')
            name += c;
        else if (c.isSpace())
            name += '-';
    }
    return name;
}

} // namespace

WGuideBrowser::WGuideBrowser(QWidget *parent)
    : QTextBrowser(parent)
    , fFit(new QTimer(this))
{
    setObjectName("guideBrowser");
    setOpenExternalLinks(true);
    setFrameShape(QFrame::NoFrame);
    document()->setDocumentMargin(cMargin);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // pictures take the width before it is known who needs it
    fFit->setSingleShot(true);
    fFit->setInterval(cFitDelay);
    connect(this, &QTextBrowser::sourceChanged, this, [this](const QUrl &page) {
        dress();
        goToHeading(page.fragment());
    });
    connect(fFit, &QTimer::timeout, this, [this] {
        if (source().isEmpty() || textWidth() == fFittedWidth)
            return;
        const int place = verticalScrollBar()->value();
        reload();
        dress();
        verticalScrollBar()->setValue(place);
    });
}

int WGuideBrowser::textWidth() const
{
    return viewport()->width() - 2 * cMargin;
}

QVariant WGuideBrowser::loadResource(int type, const QUrl &name)
{
    QVariant found = QTextBrowser::loadResource(type, name);
    if (type != QTextDocument::ImageResource)
        return found;
    const QImage picture = QImage::fromData(found.toByteArray());
    const int width = qMax(cLeastPicture, textWidth() - int(document()->indentWidth())); // some stand in lists
    if (picture.width() <= width)
        return picture.isNull() ? found : QVariant(picture);
    return picture.scaledToWidth(width, Qt::SmoothTransformation);
}

void WGuideBrowser::resizeEvent(QResizeEvent *event)
{
    QTextBrowser::resizeEvent(event);
    fFit->start();
}

/// Markdown knows no looks: tables get room between their words and thin lines, headings some air above them.
void WGuideBrowser::dress()
{
    fFittedWidth = textWidth();
    QColor line = palette().color(QPalette::Text);
    line.setAlpha(cLineOpacity);
    for (QTextFrame *frame : document()->rootFrame()->childFrames()) {
        auto *table = qobject_cast<QTextTable *>(frame);
        if (!table)
            continue;
        QTextTableFormat format = table->format();
        format.setCellPadding(cCellPadding);
        format.setCellSpacing(0);
        format.setBorder(1);
        format.setBorderCollapse(true);
        format.setBorderBrush(line);
        format.setTopMargin(cTableMargin);
        format.setBottomMargin(cTableMargin);
        table->setFormat(format);
    }
    for (QTextBlock block = document()->firstBlock().next(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 0)
            continue;
        QTextBlockFormat format = block.blockFormat();
        format.setTopMargin(cHeadingMargin);
        QTextCursor(block).setBlockFormat(format);
    }
}

void WGuideBrowser::goToHeading(const QString &fragment)
{
    if (fragment.isEmpty())
        return;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 0 || headingName(block.text()) != fragment)
            continue;
        // from the end upwards, so that the heading comes to the top
        moveCursor(QTextCursor::End);
        setTextCursor(QTextCursor(block));
        ensureCursorVisible();
        verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect().top() - cMargin);
        return;
    }
}
