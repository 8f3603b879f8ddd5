#pragma once

#include <QString>

/// What became of an operation: 0 or its error code, and a text for the user.
struct TOperationResult
{
    int code = 0;
    QString text;

    bool isOk() const { return code == 0; }
};
