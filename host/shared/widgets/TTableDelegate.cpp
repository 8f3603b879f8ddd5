#include "widgets/TTableDelegate.h"

#include "settings/TNumberFormat.h"
#include "widgets/TBaseTableViewModel.h"

#include <QApplication>
#include <QPainter>

namespace {

const QStyle *styleOf(const QStyleOptionViewItem &option)
{
    return option.widget ? option.widget->style() : QApplication::style();
}

} // namespace

/// The room that the decimals take which longer numbers of the column have and this one has not.
int TTableDelegate::padding(const QFontMetrics &metrics, const QModelIndex &place)
{
    const int missing = place.data(TBaseTableViewModel::cPadRole).toInt();
    if (missing <= 0)
        return 0;
    const QString sign = TNumberFormat::decimalSign();
    const bool hasSign = place.data().toString().contains(sign);
    return missing * metrics.horizontalAdvance('0') + (hasSign ? 0 : metrics.horizontalAdvance(sign));
}

void TTableDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &place) const
{
    QStyledItemDelegate::initStyleOption(option, place);
    // the style derives the frame from the colour of windows, which a dark table nearly has
    if (option->features & QStyleOptionViewItem::HasCheckIndicator)
        option->palette.setColor(QPalette::Window, option->palette.color(QPalette::PlaceholderText));
}

QSize TTableDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &place) const
{
    return QStyledItemDelegate::sizeHint(option, place) + QSize(padding(option.fontMetrics, place), 0);
}

void TTableDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &place) const
{
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, place);
    const QVariant radio = place.data(TBaseTableViewModel::cRadioRole);
    const int pad = padding(cell.fontMetrics, place);
    const QStyle *style = styleOf(cell);
    if (radio.isValid()) {
        cell.features &= ~QStyleOptionViewItem::HasCheckIndicator;
        style->drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);
        paintRadio(painter, cell, radio.toBool());
        return;
    }
    if (pad == 0) {
        style->drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);
        return;
    }
    const QString text = cell.text;
    QRect room = style->subElementRect(QStyle::SE_ItemViewItemText, &cell, cell.widget);
    cell.text.clear();
    style->drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, cell.widget) + 1;
    room.adjust(margin, 0, -margin - pad, 0);
    const bool isSelected = cell.state & QStyle::State_Selected;
    const QPalette::ColorGroup group = !(cell.state & QStyle::State_Enabled) ? QPalette::Disabled
                                       : (cell.state & QStyle::State_Active) ? QPalette::Active
                                                                             : QPalette::Inactive;
    painter->save();
    painter->setFont(cell.font);
    painter->setPen(cell.palette.color(group, isSelected ? QPalette::HighlightedText : QPalette::Text));
    painter->drawText(room, Qt::AlignRight | Qt::AlignVCenter,
                      cell.fontMetrics.elidedText(text, Qt::ElideRight, room.width()));
    painter->restore();
}

void TTableDelegate::paintRadio(QPainter *painter, const QStyleOptionViewItem &option, bool isOn) const
{
    const QStyle *style = styleOf(option);
    QStyleOptionButton button;
    const int side = style->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth, nullptr, option.widget);
    button.rect = QRect(0, 0, side, side);
    button.rect.moveCenter(option.rect.center());
    button.palette = option.palette;
    // the style derives the frame from the colour of windows, which a dark table nearly has
    button.palette.setColor(QPalette::Window, option.palette.color(QPalette::PlaceholderText));
    button.state = (option.state & QStyle::State_Enabled) | (isOn ? QStyle::State_On : QStyle::State_Off);
    style->drawPrimitive(QStyle::PE_IndicatorRadioButton, &button, painter, option.widget);
}
