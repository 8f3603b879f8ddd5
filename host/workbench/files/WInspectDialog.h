#pragma once

#include "plugin/TFileNode.h"

#include <QDialog>

/// What the readers see inside a file, as a tree.
class WInspectDialog : public QDialog
{
    Q_OBJECT

public:
    WInspectDialog(const QString &path, const TFileNode &file, QWidget *parent = nullptr);

    /// Puts the words of the whole tree into the clipboard.
    void copy() const;

private:
    TFileNode fFile;
};
