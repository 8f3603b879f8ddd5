#include "WScriptInput.h"

#include "ScriptHabits.h"
#include "ScriptText.h"
#include "script/TScriptRun.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTextBlock>
#include <QtMath>

namespace {

constexpr int cIndent = 4;
constexpr int cMostLines = 8;
constexpr int cLeastWidth = 200;
constexpr int cMostShown = 10; // names
constexpr int cNameRole = Qt::UserRole;
constexpr QRgb cPartner = qRgba(0x2F, 0x9E, 0x62, 0x60);
constexpr QRgb cAlone = qRgba(0xD0, 0x02, 0x1B, 0x60);

bool isReturn(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

} // namespace

WScriptInput::WScriptInput(QWidget *parent)
    : QPlainTextEdit(parent)
    , fCompleter(new QCompleter(this))
    , fNames(new QStandardItemModel(this))
{
    setObjectName("scriptInput");
    setAccessibleName(tr("Script to run"));
    setFrameShape(QFrame::NoFrame);
    setLineWrapMode(NoWrap);
    setAcceptDrops(false); // the console takes files
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setPlaceholderText(tr("Return runs, Shift+Return begins a line, Tab completes"));
    fCompleter->setModel(fNames);
    fCompleter->setCompletionRole(cNameRole);
    fCompleter->setCaseSensitivity(Qt::CaseInsensitive);
    fCompleter->setMaxVisibleItems(cMostShown);
    fCompleter->setWidget(this);
    connect(fCompleter, QOverload<const QString &>::of(&QCompleter::activated), this, &WScriptInput::insertCompletion);
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, &WScriptInput::markBrackets);
    connect(document(), &QTextDocument::blockCountChanged, this, &WScriptInput::followLines);
    takeSettings();
}

void WScriptInput::takeSettings()
{
    setFont(ScriptHabits::font());
    setTabStopDistance(cIndent * fontMetrics().horizontalAdvance(' '));
    updateGeometry();
}

void WScriptInput::followLines()
{
    setVerticalScrollBarPolicy(blockCount() > cMostLines ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    updateGeometry();
}

/// All lines are seen as long as they are few.
void WScriptInput::resizeEvent(QResizeEvent *event)
{
    QPlainTextEdit::resizeEvent(event);
    if (blockCount() <= cMostLines)
        verticalScrollBar()->setValue(0);
}

QSize WScriptInput::sizeHint() const
{
    const int lines = qBound(1, blockCount(), cMostLines);
    const int margins = 2 * (int(document()->documentMargin()) + frameWidth());
    const int bar = horizontalScrollBar()->isVisible() ? horizontalScrollBar()->height() : 0;
    const double height =
        lines * qMax(QFontMetricsF(font()).lineSpacing(), blockBoundingRect(firstVisibleBlock()).height());
    return {cLeastWidth, qCeil(height) + margins + bar};
}

void WScriptInput::setText(const QString &text)
{
    QTextCursor whole(document());
    whole.select(QTextCursor::Document);
    whole.insertText(text); // undo brings back what stood there
    moveCursor(QTextCursor::End);
}

void WScriptInput::goToLine(int line)
{
    QTextCursor cursor(document()->findBlockByNumber(qBound(0, line - 1, blockCount() - 1)));
    setTextCursor(cursor);
    ensureCursorVisible();
}

QString WScriptInput::textBefore() const
{
    return toPlainText().left(textCursor().position());
}

void WScriptInput::keyPressEvent(QKeyEvent *event)
{
    const bool hasPopup = fCompleter->popup()->isVisible();
    const int key = event->key();
    if (hasPopup && (isReturn(*event) || key == Qt::Key_Tab || key == Qt::Key_Escape || key == Qt::Key_Backtab)) {
        event->ignore(); // they are for the list
        return;
    }
    if (takeKey(*event)) {
        event->accept();
        return;
    }
    if (key == Qt::Key_Escape) {
        event->ignore();
        return;
    }
    QPlainTextEdit::keyPressEvent(event);
    if (hasPopup)
        followCompletion();
}

bool WScriptInput::takeKey(const QKeyEvent &event)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    if (isReturn(event) && modifiers == Qt::ShiftModifier) {
        insertLine();
        return true;
    }
    if (isReturn(event) && modifiers == Qt::NoModifier) {
        submit();
        return true;
    }
    if (modifiers != Qt::NoModifier && event.key() != Qt::Key_BraceRight)
        return false;
    if (event.key() == Qt::Key_Tab) {
        complete();
        return true;
    }
    if (event.key() == Qt::Key_Up || event.key() == Qt::Key_Down)
        return recall(event.key());
    return event.text() == QLatin1String("}") && typeClosing(event.text());
}

void WScriptInput::submit()
{
    const QString text = toPlainText();
    if (text.trimmed().isEmpty())
        return;
    if (!TScriptRun::isComplete(text)) {
        insertLine();
        return;
    }
    fHistory.add(text);
    clear();
    emit submitted(text);
}

void WScriptInput::insertLine()
{
    textCursor().insertText('\n' + ScriptText::indentAt(toPlainText(), textCursor().position()));
    ensureCursorVisible();
}

/// A closing bracket alone on its line stands as far in as the line of the open one.
bool WScriptInput::typeClosing(const QString &bracket)
{
    QTextCursor cursor = textCursor();
    const QString line = cursor.block().text().left(cursor.positionInBlock());
    if (cursor.hasSelection() || !line.trimmed().isEmpty() || line.size() < cIndent)
        return false;
    cursor.movePosition(QTextCursor::Left, QTextCursor::KeepAnchor, cIndent);
    cursor.insertText(bracket);
    setTextCursor(cursor);
    return true;
}

bool WScriptInput::recall(int key)
{
    const bool isUp = key == Qt::Key_Up;
    const int block = textCursor().blockNumber();
    if (isUp ? block > 0 || !fHistory.hasOlder() : block < blockCount() - 1 || !fHistory.hasNewer())
        return false;
    setText(isUp ? fHistory.older(toPlainText()) : fHistory.newer());
    return true;
}

void WScriptInput::complete()
{
    const QTextCursor cursor = textCursor();
    const QString line = cursor.block().text().left(cursor.positionInBlock());
    if (line.trimmed().isEmpty()) {
        textCursor().insertText(QString(cIndent - line.size() % cIndent, ' '));
        return;
    }
    const ScriptText::TWord word = ScriptText::wordAt(toPlainText(), cursor.position());
    QScriptEngine *engine = fEngine ? fEngine() : nullptr;
    if (!engine || !word.fIsValid)
        return;
    const QVector<TScriptName> names = ScriptNames::matching(ScriptNames::members(*engine, word.fPath), word.fPrefix);
    if (names.isEmpty())
        return;
    if (names.size() == 1) {
        insertCompletion(names.first().fName);
        return;
    }
    const QString common = ScriptNames::commonBegin(names);
    if (common.size() > word.fPrefix.size())
        insertCompletion(common);
    showCompletions(names, common.size() > word.fPrefix.size() ? common : word.fPrefix);
}

void WScriptInput::showCompletions(const QVector<TScriptName> &names, const QString &prefix)
{
    fNames->clear();
    for (const TScriptName &name : names) {
        auto *entry = new QStandardItem(name.fIsFunction ? name.fName + "()" : name.fName);
        entry->setData(name.fName, cNameRole);
        fNames->appendRow(entry);
    }
    fCompleter->setCompletionPrefix(prefix);
    QAbstractItemView *list = fCompleter->popup();
    list->setFont(font());
    list->setCurrentIndex(fCompleter->completionModel()->index(0, 0));
    QRect place = cursorRect();
    place.translate(-fontMetrics().horizontalAdvance(prefix), 0);
    place.setWidth(list->sizeHintForColumn(0) + 2 * list->frameWidth() + list->verticalScrollBar()->sizeHint().width());
    fCompleter->complete(place);
}

/// What is typed while the list is there narrows it.
void WScriptInput::followCompletion()
{
    const ScriptText::TWord word = ScriptText::wordAt(toPlainText(), textCursor().position());
    fCompleter->setCompletionPrefix(word.fPrefix);
    if (!word.fIsValid || word.fPrefix.isEmpty() || fCompleter->completionCount() == 0)
        fCompleter->popup()->hide();
    else
        fCompleter->popup()->setCurrentIndex(fCompleter->completionModel()->index(0, 0));
}

void WScriptInput::insertCompletion(const QString &name)
{
    const ScriptText::TWord word = ScriptText::wordAt(toPlainText(), textCursor().position());
    QTextCursor cursor = textCursor();
    cursor.movePosition(QTextCursor::Left, QTextCursor::KeepAnchor, word.fPrefix.size());
    cursor.insertText(name);
    setTextCursor(cursor);
}

void WScriptInput::markBrackets()
{
    const QString text = toPlainText();
    const QString code = ScriptText::code(text);
    QList<QTextEdit::ExtraSelection> marks;
    for (const int place : {textCursor().position() - 1, textCursor().position()}) {
        if (place < 0 || place >= code.size() || !QStringLiteral("()[]{}").contains(code.at(place)))
            continue;
        const int partner = ScriptText::partnerOf(text, place);
        for (const int at : {place, partner}) {
            if (at < 0)
                continue;
            QTextEdit::ExtraSelection mark;
            mark.format.setBackground(QColor::fromRgba(partner < 0 ? cAlone : cPartner));
            mark.cursor = textCursor();
            mark.cursor.setPosition(at);
            mark.cursor.setPosition(at + 1, QTextCursor::KeepAnchor);
            marks.append(mark);
        }
        break;
    }
    setExtraSelections(marks);
}
