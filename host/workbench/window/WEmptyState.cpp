#include "WEmptyState.h"
#include "widgets/GuiUtils.h"

#include <QFileInfo>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <cmath>

namespace {

constexpr int cMinCardWidth = 168;
constexpr int cCardHeight = 116;
constexpr int cCardGap = 16;
constexpr int cMaxRecent = 4;
constexpr int cRowHeight = 22;
constexpr int cTextHeight = 68; // the first two lines
constexpr int cTagHeight = 44;
const QColor cInk(0x5A, 0x60, 0x68);
const QColor cPale(0x8A, 0x90, 0x98);
const QColor cLine(0xD0, 0xD4, 0xD9);
const QColor cAccent(0x00, 0x68, 0xA8);

struct TBand
{
    double place; // of the card's width
    double width;
    double height; // of the card's height
};

/// A miniature of a kind of spectra: bands on a background that falls or rises.
QPainterPath miniature(const QRectF &box, const QVector<TBand> &bands, double background, double scale)
{
    QPainterPath path;
    for (int i = 0; i <= int(box.width()); ++i) {
        const double x = i / box.width();
        double y = background * std::exp(-3.0 * x);
        for (const TBand &band : bands)
            y += scale * band.height / (1.0 + std::pow((x - band.place) / band.width, 2));
        const QPointF point(box.left() + i, box.bottom() - y * box.height());
        if (i == 0)
            path.moveTo(point);
        else
            path.lineTo(point);
    }
    return path;
}

QString sampleTitle(const QString &path)
{
    const QString name = QFileInfo(path).completeBaseName();
    if (name == QLatin1String("polystyrene"))
        return WEmptyState::tr("Polymer, infrared");
    if (name == QLatin1String("raman"))
        return WEmptyState::tr("Raman with fluorescence");
    if (name == QLatin1String("dye"))
        return WEmptyState::tr("Dye series, UV-Vis");
    return name == QLatin1String("nir") ? WEmptyState::tr("Powders, NIR") : name;
}

QVector<QPainterPath> sampleCurves(const QString &path, const QRectF &box)
{
    const QString name = QFileInfo(path).completeBaseName();
    if (name == QLatin1String("polystyrene"))
        return {miniature(
            box, {{0.2, 0.012, 0.5}, {0.24, 0.01, 0.35}, {0.62, 0.008, 0.6}, {0.68, 0.01, 0.45}, {0.9, 0.008, 0.9}},
            0.05, 1.0)};
    if (name == QLatin1String("raman"))
        return {
            miniature(box, {{0.3, 0.01, 0.3}, {0.5, 0.008, 0.4}, {0.55, 0.01, 0.25}, {0.8, 0.01, 0.35}}, 0.75, 0.8)};
    QVector<QPainterPath> curves;
    for (int i = 1; i <= 4; ++i) {
        if (name == QLatin1String("dye"))
            curves.append(miniature(box, {{0.25, 0.05, 0.35}, {0.72, 0.07, 0.8}, {0.6, 0.06, 0.3}}, 0.0, i / 4.0));
        else
            curves.append(miniature(box, {{0.3, 0.06, 0.25}, {0.65, 0.07, 0.4}, {0.85, 0.06, 0.3}}, 0.05 * i, 1.0)
                              .translated(0, -4.0 * i));
    }
    return curves;
}

} // namespace

WEmptyState::WEmptyState(QWidget *parent)
    : QWidget(parent)
{
    setMouseTracking(true);
}

void WEmptyState::setBrief(bool brief)
{
    fBrief = brief;
    update();
}

int WEmptyState::cardWidth() const
{
    int width = cMinCardWidth;
    for (const QString &path : fSamples)
        width = qMax(width, fontMetrics().horizontalAdvance(sampleTitle(path)) + 24);
    return width;
}

/// As many side by side as there is room for, in rows of equal length.
int WEmptyState::cardColumns() const
{
    const int count = qMax(1, fSamples.size());
    const int fitting = qBound(1, (width() + cCardGap) / (cardWidth() + cCardGap), count);
    const int rows = (count + fitting - 1) / fitting;
    return (count + rows - 1) / rows;
}

int WEmptyState::cardsHeight() const
{
    const int columns = cardColumns();
    const int rows = qMax(1, (fSamples.size() + columns - 1) / columns);
    return rows * cCardHeight + (rows - 1) * cCardGap;
}

int WEmptyState::top() const
{
    if (fBrief)
        return (height() - cTextHeight) / 2;
    const int recent = qMin(cMaxRecent, fRecent.size());
    const int whole = cTextHeight + cTagHeight + cardsHeight() + 24 + (recent > 0 ? (recent + 1) * cRowHeight : 0) + 40;
    return qMax(8, (height() - whole) / 2);
}

QRect WEmptyState::cardRect(int index) const
{
    const int columns = cardColumns();
    const int one = cardWidth();
    const int whole = columns * one + (columns - 1) * cCardGap;
    const int y = top() + cTextHeight + cTagHeight + index / columns * (cCardHeight + cCardGap);
    return QRect((width() - whole) / 2 + index % columns * (one + cCardGap), y, one, cCardHeight);
}

QRect WEmptyState::recentRect(int index) const
{
    const int y = top() + cTextHeight + cTagHeight + cardsHeight() + 24 + (index + 1) * cRowHeight;
    return QRect(width() / 2 - 200, y, 400, cRowHeight);
}

QString WEmptyState::pathAt(const QPoint &place) const
{
    if (fBrief)
        return QString();
    for (int i = 0; i < fSamples.size(); ++i) {
        if (cardRect(i).contains(place))
            return fSamples.at(i);
    }
    for (int i = 0; i < qMin(cMaxRecent, fRecent.size()); ++i) {
        if (recentRect(i).contains(place))
            return fRecent.at(i);
    }
    return QString();
}

void WEmptyState::drawTags(QPainter &painter, int y) const
{
    const QFontMetrics metrics = painter.fontMetrics();
    int whole = 0;
    QVector<int> widths;
    for (const QString &format : fFormats) {
        widths.append(metrics.horizontalAdvance(format) + 14);
        whole += widths.last() + 6;
    }
    int x = (width() - whole) / 2;
    for (int i = 0; i < fFormats.size(); ++i) {
        const QRect box(x, y, widths.at(i), metrics.height() + 4);
        painter.setPen(cLine);
        painter.drawRoundedRect(box, 4, 4);
        painter.setPen(cPale.darker(115));
        painter.drawText(box, Qt::AlignCenter, fFormats.at(i));
        x += widths.at(i) + 6;
    }
}

void WEmptyState::drawCard(QPainter &painter, int index) const
{
    const QRect card = cardRect(index);
    const bool isHovered = fHovered == fSamples.at(index);
    painter.setPen(QPen(isHovered ? cAccent : cLine, isHovered ? 2 : 1));
    painter.setBrush(QColor(0xFA, 0xFB, 0xFC));
    painter.drawRoundedRect(card, 6, 6);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(cAccent, 1.5));
    const QRectF room = QRectF(card).adjusted(12, 12, -12, -34);
    for (const QPainterPath &curve : sampleCurves(fSamples.at(index), room))
        painter.drawPath(curve);
    painter.setPen(cInk);
    painter.drawText(card.adjusted(4, 0, -4, -8), Qt::AlignHCenter | Qt::AlignBottom, sampleTitle(fSamples.at(index)));
}

void WEmptyState::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 1.5);
    painter.setFont(large);
    painter.setPen(cInk);
    painter.drawText(QRect(0, top(), width(), 34), Qt::AlignCenter, tr("Drop spectrometer files here"));
    painter.setFont(font());
    painter.setPen(cPale.darker(115));
    painter.drawText(QRect(0, top() + 34, width(), 26), Qt::AlignCenter, tr("or press Ctrl+O"));
    if (fBrief)
        return;
    drawTags(painter, top() + cTextHeight);
    for (int i = 0; i < fSamples.size(); ++i)
        drawCard(painter, i);
    const int recent = qMin(cMaxRecent, fRecent.size());
    painter.setPen(cInk);
    if (recent > 0)
        painter.drawText(recentRect(-1), Qt::AlignCenter, tr("Opened last"));
    for (int i = 0; i < recent; ++i) {
        painter.setPen(fHovered == fRecent.at(i) ? cAccent.lighter(130) : cAccent);
        painter.drawText(recentRect(i), Qt::AlignCenter, QFileInfo(fRecent.at(i)).fileName());
    }
    painter.setPen(cPale.darker(115));
    painter.drawText(QRect(0, recentRect(recent > 0 ? recent : 0).top() + 12, width(), 24), Qt::AlignCenter,
                     tr("Tip: Backspace brings the previous zoom back."));
}

void WEmptyState::mouseMoveEvent(QMouseEvent *event)
{
    fHovered = pathAt(event->pos());
    setCursor(fHovered.isEmpty() ? Qt::ArrowCursor : Qt::PointingHandCursor);
    setToolTip(Utils::Gui::dataTip(fHovered));
    update();
}

void WEmptyState::mousePressEvent(QMouseEvent *event)
{
    event->accept();
}

void WEmptyState::mouseReleaseEvent(QMouseEvent *event)
{
    const QString path = pathAt(event->pos());
    if (event->button() == Qt::LeftButton && !path.isEmpty())
        emit chosen(path);
}
