#pragma once

#include <QByteArray>
#include <QVector>

/// Tells lines from places in a text whose lines end with LF, CR LF or CR. The text is looked through once, at the
/// first question. Not locked.
class TJCAMPLineIndex
{
public:
    explicit TJCAMPLineIndex(const QByteArray &text)
        : fText(text)
    {
    }

    /// The line, from 1, of a byte; of one behind the text that of its end.
    int lineOf(qint64 position);

private:
    int lineEnds(int from, int to) const;

    QByteArray fText;
    QVector<int> fBefore; // line ends before each piece of the text
};
