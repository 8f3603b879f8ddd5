#pragma once

#include <QList>
#include <QObject>
#include <QStringList>
#include <functional>

class QMenu;
class QPoint;

/// A menu of files used last. A file that is gone stays in the list, grey; its context menu takes it off.
class TRecentMenu : public QObject
{
    Q_OBJECT

public:
    using TLists = std::function<QList<QStringList>()>;
    using TTake = std::function<void(const QString &path)>;

    /// Fills the menu when it opens: the lists, with a rule between them. The menu becomes its parent.
    TRecentMenu(QMenu *menu, const TLists &lists, const TTake &open, const TTake &forget);

private:
    void fill();
    void addPath(const QString &path);
    void showContextMenu(const QPoint &place);

    QMenu *fMenu;
    TLists fLists;
    TTake fOpen;
    TTake fForget;
};
