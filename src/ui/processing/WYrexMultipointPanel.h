#pragma once

#include "WYrexActionPanel.h"

class QPushButton;

/// The way from the processing dock to the points of the multipoint baseline.
class WYrexMultipointPanel : public WYrexActionPanel
{
    Q_OBJECT

public:
    explicit WYrexMultipointPanel(QWidget *parent = nullptr);

    /// Whether the points can be edited, and in a hint why not.
    void setEditable(bool isEditable, const QString &hint);

signals:
    void editWanted();

private:
    QPushButton *fButton;
    QLabel *fHint;
};
