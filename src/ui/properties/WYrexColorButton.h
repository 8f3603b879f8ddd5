#pragma once

#include <QColor>
#include <QToolButton>

/// A button that shows a colour and lets another be chosen.
class WYrexColorButton : public QToolButton
{
    Q_OBJECT

public:
    explicit WYrexColorButton(QWidget *parent = nullptr);

    QColor color() const { return fColor; }
    /// An invalid colour stands for several that differ.
    void setColor(const QColor &color);
    /// As if the user had chosen it.
    void choose(const QColor &color);

signals:
    void chosen(const QColor &color);

protected:
    void changeEvent(QEvent *event) override;

private:
    void ask();
    void draw();

    QColor fColor;
};
