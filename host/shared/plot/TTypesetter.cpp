#include "plot/TTypesetter.h"
#include "plot/PainterUtils.h"

#include <QPainter>
#include <QPainterPath>
#include <QRectF>
#include <algorithm>
#include <functional>

namespace {

constexpr double cSmallSize = 0.7; // of the font
constexpr double cRaise = 0.4;     // of the ascent
constexpr double cLower = 0.25;    // of the ascent; 0.4 would leave the line
constexpr int cMostLetters = 2000; // that are drawn of a text; more than a line of any page holds
constexpr int cLookAhead = 32;     // as long as raised parts are
const QChar cMinus(0x2212);
const QChar cEllipsis(0x2026);

bool isLevelSign(QChar c)
{
    return c == '^' || c == '_';
}

/// End of the raised or lowered part that begins at `from` (behind its sign); `from` itself when there is none.
int scriptEnd(const QString &text, int from)
{
    if (from < text.size() && text.at(from) == '{') {
        const int close = text.indexOf('}', from);
        return close < 0 ? from : close + 1;
    }
    int end = from;
    if (end < text.size() && (text.at(end) == '-' || text.at(end) == '+' || text.at(end) == cMinus))
        ++end;
    const int digits = end;
    while (end < text.size() && text.at(end).isDigit())
        ++end;
    return end > digits ? end : from;
}

QString scriptText(const QString &text, int from, int end)
{
    QString part = text.mid(from, end - from);
    if (part.startsWith('{'))
        part = part.mid(1, part.size() - 2);
    return part.replace('-', cMinus);
}

void append(QVector<TTypesetter::TRun> &runs, const QString &text, int level)
{
    if (text.isEmpty())
        return;
    if (!runs.isEmpty() && runs.last().level == level)
        runs.last().text += text;
    else
        runs.append({text, level});
}

QFont smallFont(const QFont &font)
{
    QFont result(font);
    result.setPixelSize(std::max(1, qRound(font.pixelSize() * cSmallSize)));
    return result;
}

/// As much of a text as is drawn: files may bring titles of any length, and each letter takes its time.
QString bounded(const QString &text)
{
    return text.size() <= cMostLetters ? text : text.left(cMostLetters - 1) + cEllipsis;
}

/// The last of 0..count-1 that fits, -1 for none. What comes later fits less, but for texts that are cut within a
/// raised part, which is larger then.
int lastFit(int count, const std::function<bool(int)> &fits)
{
    int low = -1;
    int high = count;
    while (high - low > 1) {
        const int middle = low + (high - low) / 2;
        (fits(middle) ? low : high) = middle;
    }
    for (int later = std::min(low + cLookAhead, count - 1); later > low; --later) {
        if (fits(later))
            return later;
    }
    return low;
}

} // namespace

TTypesetter::TTypesetter(const QFont &font)
    : fFont(font.pixelSize() > 0 ? font : Utils::Painter::fontSizeInPixels(font))
    , fSmallFont(smallFont(fFont))
    , fMetrics(fFont)
    , fSmallMetrics(fSmallFont)
    , fDigitHeight(fMetrics.tightBoundingRect(QStringLiteral("0")).height())
{
}

QVector<TTypesetter::TRun> TTypesetter::parsed(const QString &text)
{
    QVector<TRun> runs;
    QString plain;
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c == '\\' && i + 1 < text.size() && (isLevelSign(text.at(i + 1)) || text.at(i + 1) == '\\')) {
            plain += text.at(++i);
            continue;
        }
        const int end = isLevelSign(c) ? scriptEnd(text, i + 1) : i + 1;
        if (end == i + 1) {
            plain += c;
            continue;
        }
        append(runs, plain, 0);
        plain.clear();
        append(runs, scriptText(text, i + 1, end), c == '^' ? 1 : -1);
        i = end - 1;
    }
    append(runs, plain, 0);
    return runs;
}

QString TTypesetter::escaped(const QString &text)
{
    QString result;
    for (const QChar c : text) {
        if (isLevelSign(c) || c == '\\')
            result += '\\';
        result += c;
    }
    return result;
}

QString TTypesetter::plainText(const QString &text)
{
    QString result;
    for (const TRun &run : parsed(text))
        result += run.text;
    return result;
}

double TTypesetter::width(const QString &text) const
{
    double sum = 0.0;
    for (const TRun &run : parsed(bounded(text)))
        sum += (run.level == 0 ? fMetrics : fSmallMetrics).horizontalAdvance(run.text);
    return sum;
}

QString TTypesetter::elided(const QString &text, double width) const
{
    QString whole = bounded(text);
    if (this->width(whole) <= width)
        return whole;
    const auto shorter = [&whole](int length) { return whole.left(length).trimmed() + cEllipsis; };
    const int fitting = lastFit(whole.size(), [&](int length) { return this->width(shorter(length)) <= width; });
    return shorter(std::max(0, fitting));
}

QStringList TTypesetter::wrapped(const QString &text, double width, int maxLines) const
{
    QStringList lines;
    if (maxLines < 1)
        return lines;
    QString rest = text.simplified();
    while (!rest.isEmpty() && lines.size() + 1 < maxLines && this->width(rest) > width) {
        QVector<int> blanks;
        for (int at = rest.indexOf(' '); at >= 0 && at < cMostLetters; at = rest.indexOf(' ', at + 1))
            blanks.append(at);
        const int last = lastFit(blanks.size(), [&](int i) { return this->width(rest.left(blanks.at(i))) <= width; });
        if (last < 0)
            break;
        lines.append(rest.left(blanks.at(last)));
        rest = rest.mid(blanks.at(last) + 1);
    }
    if (!rest.isEmpty())
        lines.append(elided(rest, width));
    return lines;
}

void TTypesetter::draw(QPainter &painter, const QPointF &pos, const QString &text) const
{
    const QFont before = painter.font();
    double x = pos.x();
    for (const TRun &run : parsed(bounded(text))) {
        const double shift = run.level > 0 ? -cRaise * ascent() : run.level < 0 ? cLower * ascent() : 0.0;
        painter.setFont(run.level == 0 ? fFont : fSmallFont);
        const QPointF start(x, pos.y() + shift);
        if (Utils::Painter::TOutlinedText::isOn()) {
            QPainterPath outlines;
            outlines.addText(start, painter.font(), run.text);
            painter.fillPath(outlines, painter.pen().color());
        } else {
            painter.drawText(start, run.text);
        }
        x += (run.level == 0 ? fMetrics : fSmallMetrics).horizontalAdvance(run.text);
    }
    painter.setFont(before);
}

void TTypesetter::draw(QPainter &painter, const QRectF &rect, int alignment, const QString &text) const
{
    const double textWidth = width(text);
    double x = rect.left();
    if (alignment & Qt::AlignHCenter)
        x = rect.center().x() - textWidth / 2;
    else if (alignment & Qt::AlignRight)
        x = rect.right() - textWidth;
    double y = rect.center().y() + (ascent() - descent()) / 2;
    if (alignment & Qt::AlignTop)
        y = rect.top() + ascent();
    else if (alignment & Qt::AlignBottom)
        y = rect.bottom() - descent();
    draw(painter, QPointF(x, y), text);
}
