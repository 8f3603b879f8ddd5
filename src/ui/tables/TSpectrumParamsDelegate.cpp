#include "TSpectrumParamsDelegate.h"

#include "TSpectrumParamsTableModel.h"
#include "widgets/TTableProxy.h"

#include <QComboBox>
#include <QDateTimeEdit>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTimer>

namespace {

using TModel = TSpectrumParamsTableModel;

constexpr int cIndent = 4;       // blanks
constexpr int cLockSize = 12;    // px
constexpr int cTextHeight = 110; // px, of an editor for several lines
constexpr int cMostWidth = 240;  // px, of an editor with an arrow, which is to be near its text
constexpr int cDateLetters = 10; // "2026-11-21"

bool isBelowHeading(const QModelIndex &place)
{
    return place.column() == TModel::cParameter && !place.data(TTableProxy::cHeadingRole).toBool();
}

QDateTime dateOf(const QString &text)
{
    return QDateTime::fromString(QString(text).replace(' ', 'T'), Qt::ISODate);
}

} // namespace

void TSpectrumParamsDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &place) const
{
    TTableDelegate::initStyleOption(option, place);
    option->decorationPosition = QStyleOptionViewItem::Right;
    option->decorationSize = QSize(cLockSize, cLockSize);
    option->decorationAlignment = Qt::AlignRight | Qt::AlignVCenter;
    if (isBelowHeading(place))
        option->text.prepend(QString(cIndent, ' '));
}

QWidget *TSpectrumParamsDelegate::makeChoice(QWidget *parent, const QModelIndex &place) const
{
    auto *box = new QComboBox(parent);
    box->addItems(place.data(TModel::cChoicesRole).toStringList());
    auto *delegate = const_cast<TSpectrumParamsDelegate *>(this); // the signals of a delegate are not const
    connect(box, QOverload<int>::of(&QComboBox::activated), delegate, [delegate, box] {
        emit delegate->commitData(box);
        emit delegate->closeEditor(box);
    });
    QTimer::singleShot(0, box, [box] {
        if (box->isVisible())
            box->showPopup();
    });
    return box;
}

QWidget *TSpectrumParamsDelegate::makeDate(QWidget *parent, const QModelIndex &place) const
{
    auto *date = new QDateTimeEdit(parent);
    const bool hasTime = place.data(Qt::EditRole).toString().size() > cDateLetters;
    date->setDisplayFormat(hasTime ? "yyyy-MM-dd HH:mm:ss" : "yyyy-MM-dd");
    date->setCalendarPopup(true);
    date->setFrame(false);
    return date;
}

QWidget *TSpectrumParamsDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                               const QModelIndex &place) const
{
    switch (place.data(TModel::cEditorRole).toInt()) {
    case TModel::cChoiceEditor:
        return makeChoice(parent, place);
    case TModel::cDateEditor:
        return makeDate(parent, place);
    case TModel::cTextEditor: {
        auto *text = new QPlainTextEdit(parent);
        text->setToolTip(tr("Ctrl+Return takes the text, Escape leaves it as it was."));
        return text;
    }
    default:
        return TTableDelegate::createEditor(parent, option, place);
    }
}

void TSpectrumParamsDelegate::setEditorData(QWidget *editor, const QModelIndex &place) const
{
    const QString text = place.data(Qt::EditRole).toString();
    if (auto *box = qobject_cast<QComboBox *>(editor)) {
        box->setCurrentIndex(box->findText(text));
    } else if (auto *date = qobject_cast<QDateTimeEdit *>(editor)) {
        date->setDateTime(dateOf(text));
    } else if (auto *lines = qobject_cast<QPlainTextEdit *>(editor)) {
        if (!lines->document()->isModified())
            lines->setPlainText(text);
    } else {
        TTableDelegate::setEditorData(editor, place);
    }
}

/// An editor that was only opened says nothing: a cell for several spectra has a text of which none of them has.
void TSpectrumParamsDelegate::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &place) const
{
    const QString before = place.data(Qt::EditRole).toString();
    if (const auto *box = qobject_cast<QComboBox *>(editor)) {
        if (box->currentIndex() >= 0)
            model->setData(place, box->currentText(), Qt::EditRole);
    } else if (const auto *date = qobject_cast<QDateTimeEdit *>(editor)) {
        const bool hasTime = before.size() > cDateLetters;
        if (date->dateTime() != dateOf(before))
            model->setData(place, hasTime ? date->dateTime().toString(Qt::ISODate) : date->date().toString(Qt::ISODate),
                           Qt::EditRole);
    } else if (const auto *lines = qobject_cast<QPlainTextEdit *>(editor)) {
        if (lines->document()->isModified())
            model->setData(place, lines->toPlainText(), Qt::EditRole);
    } else if (const auto *line = qobject_cast<QLineEdit *>(editor)) {
        if (line->isModified())
            model->setData(place, line->text(), Qt::EditRole);
    }
}

void TSpectrumParamsDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                                   const QModelIndex &place) const
{
    TTableDelegate::updateEditorGeometry(editor, option, place);
    if (qobject_cast<QComboBox *>(editor) || qobject_cast<QDateTimeEdit *>(editor))
        editor->resize(qMin(cMostWidth, option.rect.width()), option.rect.height());
    if (!qobject_cast<QPlainTextEdit *>(editor))
        return;
    QRect room = option.rect;
    room.setHeight(cTextHeight);
    const int below = editor->parentWidget()->height();
    if (room.bottom() >= below)
        room.moveBottom(qMax(room.height(), below) - 1);
    editor->setGeometry(room);
}

bool TSpectrumParamsDelegate::eventFilter(QObject *editor, QEvent *event)
{
    auto *lines = qobject_cast<QPlainTextEdit *>(editor);
    if (lines && event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        const bool isReturn = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
        if (isReturn && key->modifiers() & Qt::ControlModifier) {
            emit commitData(lines);
            emit closeEditor(lines);
            return true;
        }
        if (isReturn)
            return false; // a new line
    }
    return TTableDelegate::eventFilter(editor, event);
}
