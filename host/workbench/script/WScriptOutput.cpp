#include "WScriptOutput.h"

#include "ScriptHabits.h"

#include <QEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>

namespace {

constexpr int cFlushMs = 60;
constexpr int cDarkBelow = 128; // lightness

} // namespace

WScriptOutput::WScriptOutput(QWidget *parent)
    : QTextBrowser(parent)
{
    setObjectName("scriptOutput");
    setAccessibleName(tr("Output of scripts"));
    setFrameShape(QFrame::NoFrame);
    setOpenLinks(false);
    setUndoRedoEnabled(false);
    setAcceptDrops(false);
    setTextInteractionFlags(Qt::TextBrowserInteraction | Qt::TextSelectableByKeyboard);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    document()->setMaximumBlockCount(cMostLines);
    fTimer.setSingleShot(true);
    fTimer.setInterval(cFlushMs);
    connect(&fTimer, &QTimer::timeout, this, &WScriptOutput::flush);
    takeSettings();
}

void WScriptOutput::takeSettings()
{
    setFont(ScriptHabits::font());
}

void WScriptOutput::append(TKind kind, const QString &text, const QString &link, const QUrl &target)
{
    const bool isLong = text.size() > cLongestLine;
    const QString shown = isLong ? text.left(cLongestLine) + tr("... (%1 letters)").arg(text.size()) : text;
    if (fWaiting.size() >= cMostLines) { // older ones would go at once
        fWaiting.erase(fWaiting.begin(), fWaiting.begin() + cMostLines / 2);
        fLeftOut += cMostLines / 2;
    }
    fWaiting.append({kind, shown, link, target});
    if (!fTimer.isActive())
        fTimer.start();
    emit appended();
}

void WScriptOutput::flush()
{
    fTimer.stop();
    if (fWaiting.isEmpty())
        return;
    QScrollBar *bar = verticalScrollBar();
    const bool isAtEnd = bar->value() == bar->maximum();
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    cursor.beginEditBlock();
    if (fLeftOut > 0)
        write(cursor, {cNote, tr("... %1 lines were too many to be shown").arg(fLeftOut), QString(), QUrl()});
    for (const TLine &line : qAsConst(fWaiting))
        write(cursor, line);
    cursor.endEditBlock();
    fWaiting.clear();
    fLeftOut = 0;
    if (isAtEnd || !isVisible())
        bar->setValue(bar->maximum()); // who reads further up is left there
}

void WScriptOutput::write(QTextCursor &cursor, const TLine &line)
{
    const int first = document()->isEmpty() ? 0 : document()->blockCount();
    if (!document()->isEmpty())
        cursor.insertBlock();
    QTextCharFormat format;
    format.setForeground(colorOf(line.fKind));
    const int begin = cursor.block().blockNumber();
    if (!line.fLink.isEmpty()) {
        QTextCharFormat link = format;
        link.setAnchor(true);
        link.setAnchorHref(line.fTarget.toString(QUrl::FullyEncoded));
        link.setFontUnderline(true);
        cursor.insertText(line.fLink, link);
        cursor.insertText(QStringLiteral(": "), format);
    }
    cursor.insertText(line.fText, format);
    for (QTextBlock block = document()->findBlockByNumber(qMin(first, begin)); block.isValid(); block = block.next())
        block.setUserState(line.fKind);
}

void WScriptOutput::clearAll()
{
    fWaiting.clear();
    fLeftOut = 0;
    clear();
}

QColor WScriptOutput::colorOf(int kind) const
{
    const bool isDark = palette().color(QPalette::Base).lightness() < cDarkBelow;
    switch (kind) {
    case cInput:
    case cNote:
        return palette().color(QPalette::PlaceholderText);
    case cResult:
        return palette().color(QPalette::Link);
    case cWarning:
        return isDark ? QColor(0xE8, 0xB2, 0x4A) : QColor(0x9A, 0x62, 0x00);
    case cError:
        return isDark ? QColor(0xFF, 0x7B, 0x72) : QColor(0xC4, 0x12, 0x24);
    default:
        return palette().color(QPalette::Text);
    }
}

void WScriptOutput::recolor()
{
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        QTextCharFormat format;
        format.setForeground(colorOf(block.userState()));
        cursor.setPosition(block.position());
        cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        cursor.mergeCharFormat(format);
    }
    cursor.endEditBlock();
}

void WScriptOutput::resizeEvent(QResizeEvent *event)
{
    const bool isAtEnd = verticalScrollBar()->value() == verticalScrollBar()->maximum();
    QTextBrowser::resizeEvent(event);
    if (isAtEnd)
        verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

void WScriptOutput::changeEvent(QEvent *event)
{
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        recolor();
}
