#include "plot/PainterUtils.h"
#include <QPaintEngine>
#include <QPainter>
#include <cmath>

namespace {

thread_local bool gTextIsOutlined = false;

}

namespace Utils {
namespace Painter {

TOutlinedText::TOutlinedText(bool isOn)
    : fBefore(gTextIsOutlined)
{
    gTextIsOutlined = isOn;
}

TOutlinedText::~TOutlinedText()
{
    gTextIsOutlined = fBefore;
}

bool TOutlinedText::isOn()
{
    return gTextIsOutlined;
}

QFont fontSizeInPixels(const QFont &font)
{
    QFont result(font);
    if (font.pointSizeF() > 0.0)
        result.setPixelSize(std::max(1, qRound(font.pointSizeF())));
    result.setHintingPreference(QFont::PreferNoHinting);
    return result;
}

QFont plotFont(int size)
{
    static const bool isSubstituted = [] {
        QFont::insertSubstitution(QStringLiteral("Liberation Sans"), QStringLiteral("DejaVu Sans"));
        return true;
    }();
    Q_UNUSED(isSubstituted)
    QFont font(QStringLiteral("Liberation Sans"));
    font.setStyleHint(QFont::SansSerif);
    font.setPointSize(size);
    return font;
}

double boundingRectWidth(const QFontMetricsF &metrics, const QString &text)
{
    return std::max(metrics.boundingRect(text).width(), metrics.horizontalAdvance(text));
}

bool isVectorOutput(const QPainter &painter)
{
    const QPaintEngine *engine = painter.paintEngine();
    if (!engine)
        return false;
    switch (engine->type()) {
    case QPaintEngine::SVG:
    case QPaintEngine::Pdf:
    case QPaintEngine::Picture:
    case QPaintEngine::PostScript:
    case QPaintEngine::MacPrinter:
        return true;
    default:
        return false;
    }
}

double deviceScale(const QPainter &painter)
{
    const double area = std::abs(painter.deviceTransform().determinant());
    return area > 0.0 && std::isfinite(area) ? std::sqrt(area) : 1.0;
}

void drawCrispLine(QPainter &painter, const QLineF &line, double width, const QColor &color)
{
    const QTransform device = painter.deviceTransform();
    const bool isHorizontal = line.dy() == 0.0;
    if (isVectorOutput(painter) || device.type() > QTransform::TxScale || (!isHorizontal && line.dx() != 0.0)) {
        painter.save();
        painter.setPen(QPen(color, width, Qt::SolidLine, Qt::FlatCap));
        painter.drawLine(line);
        painter.restore();
        return;
    }
    const QLineF mapped = device.map(line);
    const double pen = std::max(1.0, std::round(width * deviceScale(painter)));
    const QPointF lower(std::min(mapped.x1(), mapped.x2()), std::min(mapped.y1(), mapped.y2()));
    const QPointF upper(std::max(mapped.x1(), mapped.x2()), std::max(mapped.y1(), mapped.y2()));
    QRectF pixels;
    if (isHorizontal) {
        const double left = std::round(lower.x());
        pixels = QRectF(left, std::round(lower.y() - pen / 2), std::max(1.0, std::round(upper.x()) - left), pen);
    } else {
        const double top = std::round(lower.y());
        pixels = QRectF(std::round(lower.x() - pen / 2), top, pen, std::max(1.0, std::round(upper.y()) - top));
    }
    painter.fillRect(device.inverted().mapRect(pixels), color);
}

} // namespace Painter
} // namespace Utils
