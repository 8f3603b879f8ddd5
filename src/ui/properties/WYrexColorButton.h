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

    /// A text that stands in place of the colour, which then cannot be chosen; empty for none.
    void showInstead(const QString &text);

signals:
    void chosen(const QColor &color);

protected:
    void changeEvent(QEvent *event) override;

private:
    void ask();
    void draw();

    QColor fColor;
    QString fInstead;
};
