#pragma once

#include "widgets/WPluginDockWidget.h"

class IPluginHost;
class QLabel;
class QVBoxLayout;
class TCanvasYrexSpectrum;
class TCommand;
class TTableProperties;

/// What the module's docks with tables have in common: a line with the names of item and spectrum, a grey line without
/// a spectrum, the way back to the plot. A dock that is not seen reads its item once it is.
class WYrexTableDock : public WPluginDockWidget
{
    Q_OBJECT

public:
    /// The host is not owned and lives longer.
    WYrexTableDock(const QString &name, const QString &title, IPluginHost &host, QWidget *parent = nullptr);

    void refresh() override;
    /// The item that is shown, when its active plot shows spectra; else null.
    TCanvasYrexSpectrum *spectrumItem() const;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    /// The widget below the line of names, whose focus the dock passes on.
    void setContent(QWidget *content, QWidget *focused);
    /// Reads the item anew; null for none.
    virtual void read(TCanvasYrexSpectrum *item) = 0;
    /// Why the dock is grey as a whole, in a line; empty when it is not.
    QString whyNot() const;
    /// What stands behind the names.
    virtual QString remark() const { return QString(); }
    bool push(TCommand *command) const;
    /// Puts such a table of the item on its page.
    void placeOnPage(const TTableProperties &properties) const;
    IPluginHost &host() const { return fHost; }

private:
    void showNames(const TCanvasYrexSpectrum &item);

    IPluginHost &fHost;
    QLabel *fNames;
    QLabel *fNothing;
    QVBoxLayout *fColumn;
    QWidget *fContent = nullptr;
    bool fIsStale = true;
};
