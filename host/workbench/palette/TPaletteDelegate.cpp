#include "TPaletteDelegate.h"

#include "TPaletteEntries.h"
#include "widgets/GuiUtils.h"

#include <QListWidgetItem>
#include <QPainter>

namespace {

constexpr int cGap = 8; // pixels
constexpr int cRowMargin = 5;
constexpr int cCheckWidth = 20;
const QChar cCheckMark(0x2713);

} // namespace

void TPaletteDelegate::fill(QListWidgetItem &row, const TPaletteEntry &entry, const QVector<int> &places)
{
    QVariantList letters;
    for (const int place : places)
        letters.append(place);
    row.setText(entry.fTitle);
    row.setData(cPathRole, entry.fPath);
    row.setData(cShortcutRole, entry.fShortcut);
    row.setData(cReasonRole, entry.fReason);
    row.setData(cPlacesRole, letters);
    row.setData(cEnabledRole, entry.fIsEnabled);
    row.setData(cCheckRole, entry.fIsCheckable && entry.fIsChecked);
    row.setToolTip(Utils::Gui::dataTip(entry.fReason.isEmpty() ? entry.fPath : entry.fReason));
    // for screen readers, which do not see what is drawn
    row.setData(Qt::AccessibleTextRole,
                QStringList{entry.fTitle, entry.fPath, entry.fShortcut, entry.fReason}.join(' ').simplified());
}

QSize TPaletteDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &) const
{
    return QSize(0, option.fontMetrics.height() + 2 * cRowMargin);
}

/// Letter by letter, those found in bold. The place behind the last one.
int TPaletteDelegate::drawName(QPainter &painter, const QRect &room, const QModelIndex &index)
{
    const QString name = index.data(Qt::DisplayRole).toString();
    const QVariantList places = index.data(cPlacesRole).toList();
    const QFont plain = painter.font();
    QFont bold = plain;
    bold.setBold(true);
    int left = room.left();
    for (int from = 0; from < name.size() && left < room.right();) {
        const bool isFound = places.contains(from);
        int to = from + 1;
        while (to < name.size() && places.contains(to) == isFound)
            ++to;
        painter.setFont(isFound ? bold : plain);
        const QString part = name.mid(from, to - from);
        const QRect rest(left, room.top(), room.right() - left, room.height());
        painter.drawText(rest, Qt::AlignVCenter | Qt::TextSingleLine, part);
        left += painter.fontMetrics().horizontalAdvance(part);
        from = to;
    }
    painter.setFont(plain);
    return left;
}

void TPaletteDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const bool isSelected = option.state & QStyle::State_Selected;
    const bool isEnabled = index.data(cEnabledRole).toBool();
    const QPalette &colours = option.palette;
    const QPalette::ColorGroup group = isEnabled ? QPalette::Active : QPalette::Disabled;
    painter->save();
    if (isSelected)
        painter->fillRect(option.rect,
                          isEnabled ? colours.color(QPalette::Highlight) : colours.color(QPalette::Midlight));
    const QColor ink = colours.color(group, isSelected && isEnabled ? QPalette::HighlightedText : QPalette::Text);
    QColor pale = ink;
    pale.setAlphaF(0.65);
    painter->setFont(option.font);
    QRect room = option.rect.adjusted(cGap, 0, -cGap, 0);
    painter->setPen(ink);
    if (index.data(cCheckRole).toBool())
        painter->drawText(room, Qt::AlignVCenter | Qt::AlignLeft, cCheckMark);
    room.setLeft(room.left() + cCheckWidth);
    const QString keys = index.data(cShortcutRole).toString();
    painter->drawText(room, Qt::AlignVCenter | Qt::AlignRight, keys);
    if (!keys.isEmpty())
        room.setRight(room.right() - option.fontMetrics.horizontalAdvance(keys) - 2 * cGap);
    room.setLeft(drawName(*painter, room, index) + 2 * cGap);
    const QString reason = index.data(cReasonRole).toString();
    QFont small = option.font;
    small.setItalic(!reason.isEmpty());
    painter->setFont(small);
    painter->setPen(isEnabled ? pale : ink);
    const QString text = reason.isEmpty() ? index.data(cPathRole).toString() : reason;
    if (room.width() > 0)
        painter->drawText(room, Qt::AlignVCenter | Qt::AlignLeft,
                          painter->fontMetrics().elidedText(text, Qt::ElideRight, room.width()));
    painter->restore();
}
