#pragma once

#include "WSettingsPage.h"

class QCheckBox;
class QSpinBox;

/// The settings of the console.
class WScriptPage : public WSettingsPage
{
    Q_OBJECT

public:
    explicit WScriptPage(QWidget *parent = nullptr);
    void apply() override;

private:
    QSpinBox *fFontSize;
    QCheckBox *fEcho;
    QCheckBox *fHistory;
};
