#pragma once

#include <QToolButton>

/// A button of the ribbon: large with its icon over the text, which may take two lines, or small with the text beside.
/// Its tool tip has text, key and, where it cannot be used, why.
class WRibbonButton : public QToolButton
{
    Q_OBJECT

public:
    explicit WRibbonButton(bool isLarge, QWidget *parent = nullptr);

    bool isLarge() const { return fIsLarge; }
    /// Of a button without an action of its own.
    void setLabel(const QString &text);

protected:
    void actionEvent(QActionEvent *event) override;
    bool event(QEvent *event) override;

private:
    QString fullToolTip() const;

    bool fIsLarge;
};
