#pragma once

#include <QStyledItemDelegate>

/// Draws numbers right aligned on their decimal sign, radio buttons, and check boxes whose frames stand out from a dark
/// table as well.
class TTableDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &place) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &place) const override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &place) const override;

private:
    static int padding(const QFontMetrics &metrics, const QModelIndex &place);
    void paintRadio(QPainter *painter, const QStyleOptionViewItem &option, bool isOn) const;
};
