#pragma once

#include "widgets/WPluginDockWidget.h"

class IPluginHost;
class QLabel;
class TCanvasYrexSpectrum;
class TYrexSpectrum;

/// Base of the docks of this module: a line that says what is shown, and below it the dock's own controls. Escape gives
/// the keyboard back to the plot.
class WYrexPluginDockWidget : public WPluginDockWidget
{
    Q_OBJECT

public:
    /// The host is not owned and lives longer.
    WYrexPluginDockWidget(IPluginHost &host, const QString &name, const QString &title, QWidget *parent = nullptr);

    /// The item that is shown, when it is one of this module with a spectrum; else null.
    TCanvasYrexSpectrum *spectrumItem() const;
    /// The active spectrum of that item.
    TYrexSpectrum *spectrum() const;

protected:
    /// Takes over what stands below the header.
    void setContent(QWidget *content);
    /// Names the item and its spectrum, or the number of selected items; disables the controls when there is none.
    void showHeader(int itemCount);
    IPluginHost &host() const { return fHost; }
    void keyPressEvent(QKeyEvent *event) override;

private:
    IPluginHost &fHost;
    QLabel *fHeader;
    QWidget *fContent = nullptr;
};
