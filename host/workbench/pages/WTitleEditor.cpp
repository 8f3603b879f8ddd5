#include "WTitleEditor.h"

#include "WDocumentView.h"

#include <QKeyEvent>
#include <QScrollBar>

namespace {

constexpr double cLineHeight = 1.3; // of the font's height
constexpr int cLeastFont = 11;      // pixels
constexpr int cMostFont = 40;

bool isModifier(int key)
{
    return key == Qt::Key_Control || key == Qt::Key_Shift || key == Qt::Key_Alt || key == Qt::Key_AltGr ||
           key == Qt::Key_Meta;
}

} // namespace

WTitleEditor::WTitleEditor(const QString &text, WDocumentView &view)
    : QLineEdit(text, view.viewport())
    , fBefore(text)
{
    setObjectName("titleEditor");
    setAccessibleName(tr("Title"));
    setToolTip(tr("^ raises and _ lowers what follows; a backslash before a sign shows it as it is."));
    // the title moves on with the page
    const auto accept = [this] { finish(true); };
    connect(&view, &WDocumentView::zoomChanged, this, accept);
    connect(view.horizontalScrollBar(), &QScrollBar::valueChanged, this, accept);
    connect(view.verticalScrollBar(), &QScrollBar::valueChanged, this, accept);
}

void WTitleEditor::showOver(const QRectF &rect)
{
    const QSize room = parentWidget()->size();
    QFont shown = font();
    shown.setPixelSize(qBound(cLeastFont, qRound(rect.height() / cLineHeight), cMostFont));
    setFont(shown);
    const int height = sizeHint().height();
    const int width = qMin(room.width(), qMax(cLeastWidth, qRound(rect.width())));
    const QPointF centre = rect.center();
    setGeometry(qBound(0, qRound(centre.x()) - width / 2, room.width() - width),
                qBound(0, qRound(centre.y()) - height / 2, qMax(0, room.height() - height)), width, height);
    selectAll();
    show();
    setFocus(Qt::OtherFocusReason);
}

void WTitleEditor::finish(bool accepts)
{
    if (fIsOver)
        return;
    fIsOver = true;
    if (hasFocus())
        parentWidget()->parentWidget()->setFocus(); // the keys of the plot work again
    hide();
    deleteLater();
    if (accepts && text() != fBefore)
        emit edited(text());
}

bool WTitleEditor::event(QEvent *event)
{
    if (event->type() != QEvent::ShortcutOverride)
        return QLineEdit::event(event);
    const auto *key = static_cast<QKeyEvent *>(event);
    event->ignore();
    QLineEdit::event(event);
    if (!event->isAccepted() && !isModifier(key->key())) {
        const bool isCommand = key->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
        if (isCommand)
            finish(true); // what is saved, say, has the new title
        else
            event->accept();
    }
    return true;
}

void WTitleEditor::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        finish(true);
    else if (event->key() == Qt::Key_Escape)
        finish(false);
    else
        QLineEdit::keyPressEvent(event);
    event->accept(); // the view below gets none
}

void WTitleEditor::focusOutEvent(QFocusEvent *event)
{
    QLineEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason) // its own context menu
        finish(true);
}
