#pragma once

#include <QLabel>

/// Says beside a field what is wrong with it, in red italics that can be read on light and dark; empty when all is
/// well.
class WProblemLabel : public QLabel
{
    Q_OBJECT

public:
    explicit WProblemLabel(QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;

private:
    void takeColor();
};
