#pragma once

#include <QObject>

/// The common QObject base of plug-in roots.
class TEmptyPlugin : public QObject
{
    Q_OBJECT
};
