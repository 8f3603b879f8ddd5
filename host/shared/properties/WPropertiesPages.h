#pragma once

#include "canvas/TCanvasItemList.h"

#include <QStringList>
#include <QWidget>

/// The pages of the properties dialog for one kind of items. Each edit becomes a step of the history at once, or, when
/// not live, waits for apply.
class WPropertiesPages : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    virtual QStringList titles() const = 0;
    virtual void showPage(int page) = 0;
    /// Shows the properties of these items, which all are of this kind. What waits stays while they are the same.
    virtual void setItems(const TCanvasItemList &items) = 0;
    virtual void setLive(bool live) = 0;
    /// Whether edits wait for apply.
    virtual bool hasPending() const = 0;
    virtual void apply() = 0;
    /// The built-in values, as one step.
    virtual void resetPage(int page) = 0;
    virtual void resetAll() = 0;
    /// What is shown becomes the default of new items of this kind.
    virtual void saveAsDefault() = 0;
    virtual void removeDefaults() = 0;
    /// Sets of properties for a purpose, by name; each is one step.
    virtual QStringList presets() const = 0;
    virtual void applyPreset(int preset) = 0;

signals:
    void pendingChanged();
};
