#pragma once

#include <QVariant>
#include <functional>

class QWidget;
struct TYrexPropertyControl;

/// The widget of a control.
struct TYrexPropertyWidget
{
    QWidget *fWidget = nullptr; // its object name is the control's key
    /// Shows the value of the field without telling of an edit; `mixed`: the items differ.
    std::function<void(const QVariant &value, bool mixed)> fShow;
};

/// Makes the widget of a control that is bound to a field. Edits by the user go to `edited`, as the field stores them.
TYrexPropertyWidget makeYrexPropertyWidget(const TYrexPropertyControl &control,
                                           const std::function<void(const QVariant &)> &edited, QWidget *parent);
