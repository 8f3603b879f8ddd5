#pragma once

#include "WYrexTableDock.h"

#include <QPointer>

class QToolButton;
class TBaseTable;
class TPage;
class TSpectrumParamsTableModel;

/// The dock with the parameters of the spectra in use.
class WYrexParamsDock : public WYrexTableDock
{
    Q_OBJECT

public:
    /// The host is not owned and lives longer.
    explicit WYrexParamsDock(IPluginHost &host, QWidget *parent = nullptr);

protected:
    void read(TCanvasYrexSpectrum *item) override;
    QString remark() const override;

private:
    void makeTools();
    void watchSelection(const TCanvasYrexSpectrum *item);
    QToolButton *addTool(const QString &text, const QString &tip, bool isCheckable);
    void editTemplates();
    void placeRows();
    void openMenu(const QPoint &place);

    TSpectrumParamsTableModel *fModel;
    TBaseTable *fTable;
    QToolButton *fCompare = nullptr;
    QToolButton *fTemplates = nullptr;
    QPointer<TPage> fPage; // of the item
};
