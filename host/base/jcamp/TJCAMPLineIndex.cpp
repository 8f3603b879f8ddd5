#include "jcamp/TJCAMPLineIndex.h"

namespace {

constexpr int cPiece = 65536; // bytes

} // namespace

int TJCAMPLineIndex::lineOf(qint64 position)
{
    if (fBefore.isEmpty()) {
        fBefore.append(0);
        for (int end = cPiece; end < fText.size() && end > 0; end = end > fText.size() - cPiece ? 0 : end + cPiece)
            fBefore.append(fBefore.last() + lineEnds(end - cPiece, end));
    }
    const int place = int(qBound(qint64(0), position, qint64(fText.size())));
    const int piece = qMin(place / cPiece, fBefore.size() - 1);
    return 1 + fBefore[piece] + lineEnds(piece * cPiece, place);
}

int TJCAMPLineIndex::lineEnds(int from, int to) const
{
    const char *text = fText.constData();
    int count = 0;
    for (int i = from; i < to; ++i)
        count += text[i] == '\n' || (text[i] == '\r' && text[i + 1] != '\n'); // a zero stands behind the last byte
    return count;
}
