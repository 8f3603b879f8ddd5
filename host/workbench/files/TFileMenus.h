#pragma once

#include <QObject>

class QMenu;
class QPoint;
class TActionTable;
class TFileController;

/// The menus of files: those opened last and the samples. A file that is gone stays in the list, grey; its context
/// menu takes it off.
class TFileMenus : public QObject
{
    Q_OBJECT

public:
    /// Both live as long. Once the menus are built.
    TFileMenus(TActionTable &actions, TFileController &files, QObject *parent);

private:
    void fillRecent();
    void fillSamples();
    void showRecentMenu(const QPoint &place);

    TFileController &fFiles;
    QMenu *fRecent;
    QMenu *fSamples;
};
