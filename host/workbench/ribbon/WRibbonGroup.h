#pragma once

#include "ui/TMarkup.h"

#include <QWidget>

class QBoxLayout;
class QGridLayout;
class QLabel;
class TActionTable;
class WRibbonButton;

/// A named group of the ribbon. Without room it becomes one button that drops its entries down.
class WRibbonGroup : public QWidget
{
    Q_OBJECT

public:
    WRibbonGroup(const TMarkupRibbonGroup &markup, TActionTable &actions, QWidget *parent);

    /// Whether none of its entries can be used in this program.
    bool isEmpty() const { return fCount == 0; }
    bool isFolded() const { return fIsFolded; }
    void setFolded(bool folded);
    /// Of the whole group, and of its button.
    int openWidth() const;
    int foldedWidth() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void add(const TMarkupItem &item);
    void addAction(const TMarkupItem &item);
    void addCheckBox(const TMarkupItem &item);
    void addDropDown(const TMarkupItem &item);
    void addSeparator();
    /// A small one goes below the last small ones, three in a column; a large one stands alone.
    void place(QWidget *widget, bool isLarge);
    bool isLarge(const TMarkupItem &item) const;
    void makeFoldButton(const TMarkupRibbonGroup &markup);

    TActionTable &fActions;
    QStringList fSizes;
    QWidget *fBody;
    QBoxLayout *fColumns;
    QGridLayout *fColumn = nullptr; // of small entries that is being filled
    int fRows = 0;                  // in it
    int fCount = 0;
    int fEntry = 0;
    QLabel *fCaption;
    WRibbonButton *fButton = nullptr;
    bool fIsFolded = false;
};
