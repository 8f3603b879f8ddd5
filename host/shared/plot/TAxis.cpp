#include "plot/TAxis.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"

namespace {

bool areLimits(double from, double to)
{
    return std::isfinite(from) && std::isfinite(to) && std::isfinite(to - from);
}

} // namespace

void TAxis::setScale(double from, double to)
{
    if (areLimits(from, to))
        fScale.setRange(from, to);
}

void TAxis::setFullScale(double from, double to)
{
    if (!areLimits(from, to))
        return;
    fFullScale.setRange(from, to);
    const TRange cut(std::max(fScale.lo(), fFullScale.lo()), std::min(fScale.hi(), fFullScale.hi()));
    fScale = cut.a < cut.b ? cut.inDirectionOf(fFullScale) : fFullScale;
}

void TAxis::applyScaleFactor(double factor)
{
    if (!(factor > 0.0) || !std::isfinite(factor))
        return;
    const TRange scale(fScale.a / factor, fScale.b / factor);
    const TRange full(fFullScale.a / factor, fFullScale.b / factor);
    if (!areLimits(scale.a, scale.b) || !areLimits(full.a, full.b))
        return;
    fScale = scale;
    fFullScale = full;
}

TRange TAxis::drawnScale() const
{
    if (fScale.a != fScale.b)
        return fScale;
    const double half = std::max(0.5, std::abs(fScale.a) * 1e-9); // 0.5 alone is lost beside a huge value
    return TRange(fScale.a - half, fScale.a + half).inDirectionOf(fFullScale);
}

void TAxis::setPosPolicy(int policy)
{
    if (policy >= axisAtBottom && policy <= axisAtZero)
        fPosPolicy = policy;
}

void TAxis::store(TDataStream &stream) const
{
    TDataStreamAdaptor block(stream);
    block.startStore();
    stream << fFullScale.a << fFullScale.b << fScale.a << fScale.b << quint8(fVisible) << fLabel << qint32(fPosPolicy);
    block.endStore();
}

void TAxis::load(TDataStream &stream)
{
    TDataStreamAdaptor block(stream);
    if (block.hasData()) {
        TRange full;
        TRange scale;
        quint8 visible = 1;
        QString label;
        qint32 policy = fPosPolicy;
        stream >> full.a >> full.b >> scale.a >> scale.b >> visible >> label >> policy;
        if (stream.isGood()) {
            setFullScale(full.a, full.b);
            setScale(scale.a, scale.b);
            fVisible = visible != 0;
            fLabel = label;
            setPosPolicy(policy);
        }
    }
    block.skipData();
}

bool TAxis::operator==(const TAxis &other) const
{
    return fFullScale == other.fFullScale && fScale == other.fScale && fVisible == other.fVisible &&
           fPosPolicy == other.fPosPolicy && fLabel == other.fLabel;
}
