#pragma once

#include "WYrexActionPanel.h"

class WYrexMultipointPanel;

/// The panels of all actions, of which one is shown at a time.
class WYrexActionPanels : public QWidget
{
    Q_OBJECT

public:
    explicit WYrexActionPanels(QWidget *parent = nullptr);

    /// Null for an action without a panel.
    WYrexActionPanel *panel(int action) const;
    WYrexMultipointPanel *multipoint() const { return fMultipoint; }
    /// The panel that is shown; null for none.
    WYrexActionPanel *current() const { return fCurrent; }
    /// Shows and enables the panel of an action; none for -1.
    void showPanel(int action);

signals:
    void edited(QWidget *control);
    void held(bool isHeld);

private:
    void add(WYrexActionPanel *panel, bool isServed = true);

    QVector<WYrexActionPanel *> fPanels;
    WYrexMultipointPanel *fMultipoint;
    WYrexActionPanel *fCurrent = nullptr;
    QWidget *fSelect;
};
