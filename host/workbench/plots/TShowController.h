#pragma once

#include "TPlotSelection.h"
#include "plot/TAxisDir.h"

#include <QObject>
#include <functional>

class QMenu;
class TActionTable;

/// The actions on what plots show beside their curves: grid, titles, axes, legend. Each is a change of properties.
class TShowController : public QObject
{
    Q_OBJECT

public:
    TShowController(TActionTable &actions, TDocumentController &documents, QObject *parent);

    /// Fills a menu with the units of the axis on top.
    void fillSecondAxisMenu(QMenu *menu);

private:
    using TIsShown = std::function<bool(const TBasePlot &)>;

    /// An action that shows something, or hides it where the first plot shows it.
    void addToggle(const QString &name, const QStringList &fields, const TIsShown &isShown, bool needsStack = false);

    void addReverse(const QString &name, TAxisDir dir);

    TActionTable &fActions;
    TPlotSelection fSelection;
};
