#include "jcamp/JCAMPTables.h"

#include "jcamp/JCAMPConsts.h"
#include "jcamp/JCAMPUtils.h"

#include <cstring>

using namespace Consts::JCAMP;

namespace {

struct TFormPlace
{
    qint64 fBegin = 0;
    qint64 fEnd = 0;     // behind the last bracket; fBegin without a form
    qint64 fLineEnd = 0; // the first byte of the next line
};

/// The form is in the label's line, and only there: a bracket in the data belongs to them.
TFormPlace formPlace(const QByteArray &text, const TJCAMPRecord &record)
{
    const char *bytes = text.constData();
    TFormPlace place;
    qint64 at = record.valueStart(text);
    while (at < record.fEnd && (bytes[at] == ' ' || bytes[at] == '\t'))
        ++at;
    place.fBegin = place.fEnd = at;
    const bool hasForm = at < record.fEnd && bytes[at] == '(';
    int depth = 0;
    for (; at < record.fEnd && bytes[at] != '\n' && bytes[at] != '\r'; ++at) {
        const bool isComment = bytes[at] == '$' && at + 1 < record.fEnd && bytes[at + 1] == '$';
        if (isComment)
            break;
        depth += bytes[at] == '(' ? 1 : bytes[at] == ')' ? -1 : 0;
        if (hasForm && bytes[at] == ')')
            place.fEnd = at + 1;
        if (hasForm && depth == 0)
            break;
    }
    if (hasForm && place.fEnd == place.fBegin)
        place.fEnd = at;
    while (at < record.fEnd && bytes[at] != '\n' && bytes[at] != '\r')
        ++at;
    place.fLineEnd =
        qMin(qint64(record.fEnd), at + (at + 1 < record.fEnd && bytes[at] == '\r' && bytes[at + 1] == '\n' ? 2 : 1));
    return place;
}

} // namespace

bool Utils::JCAMP::isTableLabel(const QByteArray &label)
{
    const QByteArray unified = getUnifiedParamValue(label);
    for (const char *table :
         {Params::XYDATA, Params::XYPOINTS, Params::PEAKTABLE, Params::PEAKASSIGNMENTS, Params::DATATABLE}) {
        if (unified == getUnifiedParamValue(QByteArray(table)))
            return true;
    }
    return false;
}

QByteArray Utils::JCAMP::tableForm(const QByteArray &text, const TJCAMPRecord &record)
{
    const TFormPlace place = formPlace(text, record);
    return text.mid(int(place.fBegin), int(place.fEnd - place.fBegin)).trimmed();
}

qint64 Utils::JCAMP::tableStart(const QByteArray &text, const TJCAMPRecord &record)
{
    const TFormPlace place = formPlace(text, record);
    qint64 at = place.fEnd;
    while (at < place.fLineEnd && std::strchr(" \t,;", text[int(at)]))
        ++at;
    const bool isNumber = at < place.fLineEnd && std::strchr("0123456789+-.", text[int(at)]);
    return isNumber && text[int(at)] != '\0' ? place.fEnd : place.fLineEnd;
}
