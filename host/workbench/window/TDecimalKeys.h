#pragma once

#include <QObject>

/// Makes the point and the comma that are typed into number fields the decimal sign of the settings, so that both are
/// understood. The fields themselves take the other one for the mark of thousands.
class TDecimalKeys : public QObject
{
    Q_OBJECT

public:
    /// Watches the fields of the whole program.
    explicit TDecimalKeys(QObject *parent);

    bool eventFilter(QObject *object, QEvent *event) override;
};
