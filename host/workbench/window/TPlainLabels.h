#pragma once

#include <QObject>

/// Labels of the program and its plug-ins show their text as it is, since titles and names of files are in it: markup
/// is for labels that ask for Qt::RichText. The toolkit would take it for markup by its looks, and load files that it
/// names.
class TPlainLabels : public QObject
{
    Q_OBJECT

public:
    /// Watches the application until it goes.
    explicit TPlainLabels(QObject *parent);

    bool eventFilter(QObject *watched, QEvent *event) override;
};
