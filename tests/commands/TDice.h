#pragma once

#include <QVector>
#include <algorithm>
#include <random>

/// Random numbers that are the same wherever the test runs.
class TDice
{
public:
    explicit TDice(quint32 seed)
        : fEngine(seed)
    {
    }

    quint32 seed() { return quint32(fEngine()); }
    /// From 0 on, below `count`.
    int below(int count) { return int(fEngine() % quint32(count)); }
    /// From `low` to `high`, both included.
    int from(int low, int high) { return low + below(high - low + 1); }
    double real(double low, double high) { return low + (high - low) * double(fEngine()) / 4294967295.0; }
    bool oneIn(int count) { return below(count) == 0; }
    template <class T>
    T among(const QVector<T> &list)
    {
        return list.at(below(list.size()));
    }
    /// Some of the numbers from 0 on, below `count`, in any order, now and then with one that is out of range.
    QVector<int> some(int count)
    {
        QVector<int> all;
        for (int i = 0; i < count; ++i) {
            if (oneIn(2))
                all.append(i);
        }
        for (int i = all.size() - 1; i > 0; --i)
            std::swap(all[i], all[below(i + 1)]);
        if (oneIn(10))
            all.append(count + below(3));
        return all;
    }

private:
    std::mt19937 fEngine;
};
