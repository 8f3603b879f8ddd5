#pragma once

#include <QColor>
#include <QHash>
#include <QTabBar>

/// The tabs of the ribbon: flat, the present one underlined. A page that belongs to the active item has its title in
/// front of the text, in its colour.
class WRibbonTabBar : public QTabBar
{
    Q_OBJECT

public:
    explicit WRibbonTabBar(QWidget *parent = nullptr);

    void setTitle(int index, const QString &title, const QColor &color);
    /// Key tips at the tabs, by their numbers.
    void showTips(bool show);

protected:
    QSize tabSizeHint(int index) const override;
    QSize minimumTabSizeHint(int index) const override { return tabSizeHint(index); }
    void paintEvent(QPaintEvent *event) override;

private:
    struct TTitle
    {
        QString fText;
        QColor fColor;
    };
    TTitle titleOf(int index) const;
    void paintTab(QPainter &painter, int index) const;

    QHash<QString, TTitle> fTitles; // by the name of the page, which is the tab's data
    bool fShowsTips = false;
};
