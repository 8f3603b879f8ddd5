#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QUuid>

namespace Utils {
namespace Common {

/// Whether a reader's code means success. Only 0 does, also where the items of a code other than 0 stand all the same.
bool has_no_error(int code);

/// The name of a file format (Common::Types::TFileFormat); "Unknown" for any other number.
QString fileFormatToStr(int format);

/// A fresh id: random or, after setDeterministic, the next of a fixed series.
QUuid createUuid();
/// From now on ids are a series that the seed determines, from its start; an empty seed makes them random again. A
/// batch seeds with its input, so that the same input gives the same bytes.
void setDeterministic(const QByteArray &seed);

/// While it lives ids are the series of a seed; then they go on as before. A step that is done again gives what it
/// makes the ids of the first time, so that later steps find it.
class TUuidScope
{
public:
    explicit TUuidScope(const QByteArray &seed);
    ~TUuidScope();
    TUuidScope(const TUuidScope &) = delete;
    TUuidScope &operator=(const TUuidScope &) = delete;

private:
    QByteArray fSeed; // of the series outside
    quint64 fCount;
};

/// The time to write into files, in UTC: SOURCE_DATE_EPOCH of the environment (seconds) when it is set, else the fixed
/// time, else the clock.
QDateTime now();
/// The time that `now` answers from now on; an invalid one goes back to the clock.
void setFixedTime(const QDateTime &time);

} // namespace Common
} // namespace Utils
