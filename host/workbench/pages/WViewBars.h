#pragma once

#include <QWidget>

/// The strip above a page in which bars stand that tell or ask something without stopping the work. It is as high as
/// its visible bars.
class WViewBars : public QWidget
{
    Q_OBJECT

public:
    explicit WViewBars(QWidget *parent);

    /// Takes a bar over. One that is hidden or deleted leaves its room.
    void add(QWidget *bar);
    /// The height that the visible bars take in this width; pixels.
    int heightFor(int width) const;

    bool eventFilter(QObject *object, QEvent *event) override;

signals:
    void heightChanged();

protected:
    void childEvent(QChildEvent *event) override;
};
