#pragma once

#include <QStyledItemDelegate>
#include <QVector>

class QListWidgetItem;
struct TPaletteEntry;

/// Draws a row of the command palette: check, name with the letters found, menu path or why it cannot be used, keys.
class TPaletteDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    enum TRole {
        cEntryRole = Qt::UserRole,
        cPathRole,
        cShortcutRole,
        cReasonRole,
        cPlacesRole,
        cEnabledRole,
        cCheckRole
    };

    using QStyledItemDelegate::QStyledItemDelegate;

    /// Gives a row what is to be drawn; `places` are the letters found in the name.
    static void fill(QListWidgetItem &row, const TPaletteEntry &entry, const QVector<int> &places);

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    static int drawName(QPainter &painter, const QRect &room, const QModelIndex &index);
};
