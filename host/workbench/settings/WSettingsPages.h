#pragma once

#include "WSettingsPage.h"
#include "plugin/IPluginUnits.h"

#include <QStringList>

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QPushButton;
class QSpinBox;
class QTableWidget;

/// Theme, numbers, autosave.
class WGeneralPage : public WSettingsPage
{
    Q_OBJECT

public:
    explicit WGeneralPage(QWidget *parent = nullptr);
    void apply() override;

private:
    QComboBox *fTheme;
    QComboBox *fSign;
    QCheckBox *fGroups;
    QComboBox *fCopiedSign;
    QSpinBox *fMinutes;
};

/// What mouse and view do.
class WPlotPage : public WSettingsPage
{
    Q_OBJECT

public:
    explicit WPlotPage(QWidget *parent = nullptr);
    void apply() override;

private:
    QComboBox *fWheel;
    QDoubleSpinBox *fThreshold;
    QCheckBox *fKeepFitting;
};

/// The units that are set silently, by the ending of files.
class WImportPage : public WSettingsPage
{
    Q_OBJECT

public:
    /// All units that plug-ins know, for the names.
    WImportPage(const QList<TUnitChoice> &x, const QList<TUnitChoice> &y, QWidget *parent = nullptr);
    void apply() override;

private:
    void removeRows();

    QTableWidget *fPairs;
    QPushButton *fRemove;
    QStringList fRemoved;
};

/// What the picture dialog begins with.
class WExportPage : public WSettingsPage
{
    Q_OBJECT

public:
    explicit WExportPage(QWidget *parent = nullptr);
    void apply() override;

private:
    QSpinBox *fResolution;
    QComboBox *fBackground;
    QCheckBox *fTextAsText;
};
