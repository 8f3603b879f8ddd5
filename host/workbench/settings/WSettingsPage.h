#pragma once

#include <QWidget>

/// A page of the settings dialog: shows what the settings hold when it is made, and writes what it shows.
class WSettingsPage : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;
    /// Writes the settings.
    virtual void apply() = 0;
};
