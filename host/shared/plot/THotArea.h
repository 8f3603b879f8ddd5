#pragma once

#include <QRectF>

/// A rectangle that answers to the mouse. Where several hold the point, the highest priority answers.
class THotArea
{
public:
    THotArea() = default;
    explicit THotArea(const QRectF &rect)
        : fRect(rect)
    {
    }

    const QRectF &rect() const { return fRect; }
    int priority() const { return fPriority; }
    void setPriority(int priority) { fPriority = priority; }

private:
    QRectF fRect; // item canvas units
    int fPriority = 0;
};
