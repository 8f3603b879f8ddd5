#pragma once

#include "widgets/TTableDelegate.h"

/// Draws parameters below their headings, with a lock where they cannot be edited, and edits each as what it is: a
/// line, a text of several lines, a date, one of several choices.
class TSpectrumParamsDelegate : public TTableDelegate
{
    Q_OBJECT

public:
    using TTableDelegate::TTableDelegate;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &place) const override;
    void setEditorData(QWidget *editor, const QModelIndex &place) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &place) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &place) const override;
    bool eventFilter(QObject *editor, QEvent *event) override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &place) const override;

private:
    QWidget *makeChoice(QWidget *parent, const QModelIndex &place) const;
    QWidget *makeDate(QWidget *parent, const QModelIndex &place) const;
};
