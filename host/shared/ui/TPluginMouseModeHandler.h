#pragma once

#include "ui/TMMAct.h"

#include <QList>
#include <QObject>
#include <memory>
#include <vector>

class TBaseHotAreasHandler;

/// The mouse modes of a window or plug-in, of which one is on at a time; the null id is none.
class TBaseMouseModeHandler : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    virtual QUuid mode() const = 0;
    /// The mode that is on already, with the same argument, is switched off. An unknown id is none.
    virtual void setMode(const QUuid &mode, const QByteArray &argument = QByteArray()) = 0;

signals:
    void modeChanged(const QUuid &mode);
};

/// Modes that are TMMAct objects, which it owns.
class TPluginMouseModeHandler : public TBaseMouseModeHandler
{
    Q_OBJECT

public:
    explicit TPluginMouseModeHandler(QObject *parent = nullptr);
    ~TPluginMouseModeHandler() override;

    void append(TMMAct *act);
    QList<QUuid> modes() const;
    QUuid mode() const override;
    void setMode(const QUuid &mode, const QByteArray &argument = QByteArray()) override;
    /// The mode that is on; null for none.
    TMMAct *current() const { return fCurrent; }
    /// The view in which the modes work; a drag under way in another one is given up.
    void setView(IPlotView *view);

    /// What answers on the hot areas of a module's items, with or without a mode; taken over. They are asked in the
    /// order in which they were added.
    void appendHotAreas(TBaseHotAreasHandler *handler);
    const QList<TBaseHotAreasHandler *> &hotAreas() const { return fHotAreas; }

    /// Hands an event of the view to the mode that is on. Whether it took it.
    bool event(QEvent *event, const TMouseSpot &spot);
    /// Escape: gives up a drag under way, else leaves the mode; false when there was neither.
    bool escape();

    /// The mode that is on and its argument, to come back to it.
    QByteArray saveState() const;
    void restoreState(const QByteArray &state);

    using QObject::event;

private:
    std::vector<std::unique_ptr<TMMAct>> fActs;
    TMMAct *fCurrent = nullptr;
    QByteArray fArgument;
    IPlotView *fView = nullptr;
    QList<TBaseHotAreasHandler *> fHotAreas; // children
};

/// Hands an event to the operation of a mode that is made for it. Whether the mode took it.
bool handToAct(TMMAct &act, QEvent *event, const TMouseSpot &spot);
