#pragma once

#include <QWidget>

/// Tells something above the page that does not stop the work, and offers one way on.
class WWarningBar : public QWidget
{
    Q_OBJECT

public:
    WWarningBar(const QString &text, const QString &action, QWidget *parent = nullptr);
    const QString &text() const { return fText; }

signals:
    /// The user took the way that is offered. The bar goes by itself.
    void accepted();

private:
    QString fText;
};
