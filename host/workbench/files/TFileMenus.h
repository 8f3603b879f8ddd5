#pragma once

#include <QObject>

class QMenu;
class TActionTable;
class TFileController;

/// The menus of files: those opened last and the samples.
class TFileMenus : public QObject
{
    Q_OBJECT

public:
    /// Both live as long. Once the menus are built.
    TFileMenus(TActionTable &actions, TFileController &files, QObject *parent);

private:
    void fillSamples();

    TFileController &fFiles;
    QMenu *fSamples;
};
