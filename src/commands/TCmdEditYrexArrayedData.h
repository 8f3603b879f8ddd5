#pragma once

#include "TYrexSpectrumCommand.h"
#include "TYrexVoidUnlessChanged.h"

#include <QHash>
#include <QMap>
#include <QVariant>
#include <QVector>

/// Edits what belongs to the series of an item as a whole.
class TCmdEditYrexArrayedData : public TYrexVoidUnlessChanged<TYrexSpectrumCommand>
{
    Q_OBJECT

public:
    /// What there is to edit. Numbers beyond are carried along and change nothing.
    enum TKey { cLabel = 5 };
    using TValues = QMap<int, QVariant>;

    TCmdEditYrexArrayedData(const TCanvasItemList &items, const TValues &values);

    /// Swaps old and new, so that doing it twice changes nothing.
    void doItem(TCanvasYrexSpectrum *item, int index) override;
    void undoItem(TCanvasYrexSpectrum *item, int index) override { doItem(item, index); }
    bool isApplicable(TCanvasYrexSpectrum *item) const override { return item != nullptr; }
    bool isVoid() const override;
    TScriptStep scriptStep() const override;
    THistoryCommand *makeItemHistory(TCanvasYrexSpectrum *item) override;

private:
    QVector<TValues> fValues; // by item
    QHash<TCanvasYrexSpectrum *, THistoryCommand *> fItemHistory;
};
