#pragma once

#include "commands/TViewCommand.h"

#include <QMap>

class T1DStackedPlotProperties;

/// A view command that has a second form: it sets one number for each of some spectra of a stack. That form is an edit,
/// not a view: it stays with the spectra and marks the document as changed.
class TStackValuesCommand : public TViewCommand
{
    Q_OBJECT

public:
    TStackValuesCommand(const QString &description, const TCanvasItemList &items);
    /// `values` by the index of the spectrum, since an undone deletion gives new ids.
    TStackValuesCommand(const QString &description, const TCanvasItemList &items, const QMap<int, double> &values);

    void doCmd() override;
    void doCmdItem(TCanvasItem *item, int index) override;
    void undoCmdItem(TCanvasItem *item, int index) override;
    bool isViewOnly() const override { return !fHasValues; }
    THistoryCommand *itemHistoryCommand(TCanvasItem *item) override;

protected:
    bool hasValues() const { return fHasValues; }
    const QMap<int, double> &values() const { return fValues; }
    virtual double stackValue(const T1DStackedPlotProperties &properties, quint32 id) const = 0;
    virtual void setStackValue(T1DStackedPlotProperties &properties, quint32 id, double value) const = 0;
    void describe(THistoryCommand &entry) const override;

private:
    QMap<int, double> fValues;
    QVector<QMap<int, double>> fOldValues; // one per item
    bool fHasValues;
    bool fChanged = false;
};
