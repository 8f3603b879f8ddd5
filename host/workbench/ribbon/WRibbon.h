#pragma once

#include <QVector>
#include <QWidget>

class QStackedWidget;
class QToolButton;
class TActionTable;
class WRibbonPage;
class WRibbonTabBar;

/// Tabs with groups of buttons below the menus, as mark-up files describe them. A double click on a tab collapses it to
/// the tabs; a click on a tab then shows its page until something else is clicked. State and page are remembered.
class WRibbon : public QWidget
{
    Q_OBJECT

public:
    /// Once the menus were built. `actions` is not owned and lives longer.
    explicit WRibbon(TActionTable &actions, QWidget *parent = nullptr);

    bool isCollapsed() const { return fIsCollapsed; }
    void setCollapsed(bool collapsed);
    /// The page with that name, or null; pages of other items than the active one included.
    WRibbonPage *page(const QString &name) const;
    /// The name of the page in front.
    QString currentPage() const;
    /// Names of the pages that have tabs now.
    QStringList shownPages() const;
    /// The kind of the active item ("Zarnu Spectrum"; empty for none). Pages for it get their tabs, and the first one
    /// comes forward unless the user has chosen another page since it last did.
    void setActiveKind(const QString &kind);
    WRibbonTabBar &tabs() { return *fTabs; }
    /// Brings the page of a tab forward as if the user had clicked it.
    void choose(int tab);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return QSize(0, sizeHint().height()); }

signals:
    void collapsedChanged();

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void makePages(TActionTable &actions);
    QWidget *makeSearch(TActionTable &actions);
    int tabOf(const QString &name) const;
    void addTab(const WRibbonPage &page);
    void bringForward(int tab);
    void showPage(bool isPeek);

    QVector<WRibbonPage *> fPages;
    WRibbonTabBar *fTabs;
    QStackedWidget *fStack;
    QString fKind;
    QString fChosen; // the host's page that was in front last
    bool fIsCollapsed = false;
    bool fUserLeft = false; // the page of the item for one that the user chose
};
