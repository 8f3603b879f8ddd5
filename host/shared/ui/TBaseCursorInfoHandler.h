#pragma once

#include <QObject>
#include <QString>

struct TMouseSpot;

/// The texts of what stands under the mouse.
class TBaseCursorInfoHandler
{
public:
    virtual ~TBaseCursorInfoHandler() = default;
    /// The text of the mark at that place; empty where there is none.
    virtual QString infoAt(const TMouseSpot &spot) const = 0;
};

/// Tells the texts of places on items of one type.
class TCursorInfoNotifier : public QObject
{
    Q_OBJECT

public:
    /// `handler` is not owned and lives longer.
    TCursorInfoNotifier(int rtti, const TBaseCursorInfoHandler &handler, QObject *parent = nullptr);

    /// The text of the place; empty on an item of another type.
    QString notify(const TMouseSpot &spot);

signals:
    /// Another text than before.
    void cursorInfoChanged(const QString &text);

private:
    int fRtti;
    const TBaseCursorInfoHandler &fHandler;
    QString fText;
};
