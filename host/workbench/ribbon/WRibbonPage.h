#pragma once

#include "ui/TMarkup.h"

#include <QWidget>

class TActionTable;
class WRibbonGroup;

/// The groups of a tab of the ribbon side by side. Where the width is not enough, groups fold, the last ones first.
class WRibbonPage : public QWidget
{
    Q_OBJECT

public:
    WRibbonPage(const TMarkupRibbonPage &markup, TActionTable &actions, QWidget *parent);

    const TMarkupRibbonPage &markup() const { return fMarkup; }
    /// Whether nothing on it can be used in this program.
    bool isEmpty() const { return fGroups.isEmpty(); }
    const QVector<WRibbonGroup *> &groups() const { return fGroups; }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return QSize(0, sizeHint().height()); }

protected:
    void resizeEvent(QResizeEvent *event) override;
    bool event(QEvent *event) override;

private:
    void arrange();

    TMarkupRibbonPage fMarkup;
    QVector<WRibbonGroup *> fGroups;
};
