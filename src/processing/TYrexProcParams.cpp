#include "TYrexProcParams.h"

#include "TYrexProcDefaults.h"
#include "TYrexProcLabels.h"
#include "settings/TDefaultsIni.h"
#include "stream/TDataStream.h"
#include "stream/TDataStreamAdaptor.h"
#include "utils/TFileWriter.h"

#include <QCoreApplication>
#include <QFile>
#include <algorithm>
#include <cstring>

namespace {

constexpr char cTemplateHeader[] = "Kelmora Zarnu Processing";
constexpr int cTemplateNote = 1344549; // tells readers of the chain that the stream is a processing template
constexpr int cMinVariantSize = 5;     // bytes of an invalid QVariant: type and null flag
constexpr int cPointSize = 8 + 8 + 1;  // bytes of a stored baseline point

constexpr char cMultipointWindowKey[] = "Zarnu/Zarnu Baseline Correction/Multipoint/AvgWnd";
constexpr char cMultipointAlgorithmKey[] = "Zarnu/Zarnu Baseline Correction/Multipoint/AlgType";
constexpr char cMultipointLambdaKey[] = "Zarnu/Zarnu Baseline Correction/Multipoint/AlgLambda";
constexpr int cDefaultWindow = 0;
constexpr int cDefaultAlgorithm = TYrexMultipointSetup::cCubicSplines;
constexpr int cDefaultLambda = 500;

QString translated(const char *text)
{
    return QCoreApplication::translate("TYrexProcParams", text);
}

quint64 bitsOf(double value)
{
    quint64 bits = 0;
    std::memcpy(&bits, &value, sizeof(bits));
    return bits;
}

/// Whether two values are written as the same bytes. QVariant's own comparison rounds doubles and converts types.
bool isIdentical(const QVariant &a, const QVariant &b)
{
    if (a.userType() != b.userType() || a.isNull() != b.isNull())
        return false;
    switch (int(a.type())) {
    case QMetaType::Double:
        return bitsOf(a.toDouble()) == bitsOf(b.toDouble());
    case QMetaType::QVariantList: {
        const QVariantList x = a.toList();
        const QVariantList y = b.toList();
        return x.size() == y.size() && std::equal(x.begin(), x.end(), y.begin(), isIdentical);
    }
    case QMetaType::QVariantMap: {
        const QVariantMap x = a.toMap();
        const QVariantMap y = b.toMap();
        return x.size() == y.size() && std::equal(x.keyBegin(), x.keyEnd(), y.keyBegin()) &&
               std::equal(x.begin(), x.end(), y.begin(), isIdentical);
    }
    default:
        return a == b;
    }
}

} // namespace

TYrexProcParams::TYrexProcParams()
{
    const QVector<int> &ids = TYrexProcDefaults::actionIds();
    for (int i = 0; i < ids.size(); ++i)
        fDefaults[size_t(i)] = TYrexProcDefaults::settingsMap(ids[i]);
    for (const int id : TYrexProcDefaults::defaultChain())
        fActions.append(defaultMap(id));
    readMultipointDefaults();
}

QString TYrexProcParams::label(int id)
{
    return TYrexProcLabels::label(id);
}

bool TYrexProcParams::isEnumKey(const QString &key)
{
    return TYrexProcDefaults::isEnumKey(key);
}

int TYrexProcParams::actionId(int index) const
{
    const bool exists = index >= 0 && index < fActions.size();
    return exists ? action(index).value(QLatin1String(cKeyOpId)).toInt() : -1;
}

bool TYrexProcParams::isApplied(int index) const
{
    return action(index).value(QLatin1String(cKeyApply)).toBool();
}

bool TYrexProcParams::isAnyApplied() const
{
    for (int i = 0; i < fActions.size(); ++i) {
        if (isApplied(i))
            return true;
    }
    return false;
}

int TYrexProcParams::indexOfAction(int id) const
{
    for (int i = 0; i < fActions.size(); ++i) {
        if (actionId(i) == id)
            return i;
    }
    return -1;
}

void TYrexProcParams::setAction(int index, const QVariantMap &map)
{
    if (index >= 0 && index < fActions.size())
        fActions[index] = map;
}

QVariantMap TYrexProcParams::defaultMap(int action) const
{
    const int index = TYrexProcDefaults::actionIds().indexOf(action);
    return index < 0 ? QVariantMap() : fDefaults[size_t(index)];
}

void TYrexProcParams::setDefaultMap(int action, const QVariantMap &map)
{
    const int index = TYrexProcDefaults::actionIds().indexOf(action);
    if (index >= 0)
        fDefaults[size_t(index)] = map;
}

void TYrexProcParams::shareActions(const TYrexProcParams &other)
{
    if (isIdentical(fActions, other.fActions))
        fActions = other.fActions;
}

void TYrexProcParams::setApplyNothing()
{
    for (int i = fActions.size() - 1; i >= 0; --i) {
        QVariantMap map = action(i);
        map.insert(QLatin1String(cKeyApply), false);
        fActions[i] = map;
    }
}

int TYrexProcParams::readFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return cNotOpened;
    TDataStream stream(&file);
    return readTemplate(stream);
}

int TYrexProcParams::readTemplate(TDataStream &stream)
{
    stream.setData(cTemplateNote, true);
    QString header;
    stream >> header;
    if (!stream.isGood() || header != QLatin1String(cTemplateHeader))
        return cWrongFormat;
    read(stream);
    return cReadOk;
}

QByteArray TYrexProcParams::templateHeader()
{
    QByteArray bytes;
    TDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << QString::fromLatin1(cTemplateHeader);
    return bytes;
}

bool TYrexProcParams::writeFile(const QString &path, QString *error) const
{
    QByteArray bytes;
    {
        TDataStream stream(&bytes, QIODevice::WriteOnly);
        stream << QString::fromLatin1(cTemplateHeader);
        write(stream);
    }
    QString why;
    return TFileWriter::write(path, bytes, error ? error : &why);
}

void TYrexProcParams::readActions(TDataStream &stream)
{
    const TStatusGuard guard(stream);
    fActions.clear();
    const int count = stream.readCount(cMinVariantSize);
    if (count > cMaxActions)
        stream.setStatus(QDataStream::ReadCorruptData);
    for (int i = 0; i < count && stream.isGood(); ++i) {
        QVariant value;
        if (stream.readVariant(value) && value.type() != QVariant::Map)
            stream.setStatus(QDataStream::ReadCorruptData);
        fActions.append(value);
    }
    if (!stream.isGood())
        fActions.clear();
}

void TYrexProcParams::readMultipoint(TDataStream &stream)
{
    fMultipoint.points.clear();
    TDataStreamAdaptor outer(stream);
    if (outer.hasData()) {
        qint8 active = 0;
        stream >> active >> fMultipoint.avgWindow;
        fMultipoint.active = active != 0;
        TDataStreamAdaptor inner(stream);
        if (inner.hasData())
            stream >> fMultipoint.algorithm >> fMultipoint.lambda;
        inner.skipData();
        const int count = stream.readCount(cPointSize);
        for (int i = 0; i < count && stream.isGood(); ++i) {
            TYrexBaselinePoint point;
            qint8 kind = 0;
            stream >> point.x >> point.y >> kind;
            point.kind = kind;
            if (stream.isGood())
                fMultipoint.points.append(point);
        }
    }
    outer.skipData();
    TDataStreamAdaptor(stream).skipData(); // room for later versions
}

void TYrexProcParams::read(TDataStream &stream)
{
    readActions(stream);
    upgrade();
    readMultipoint(stream);
}

void TYrexProcParams::write(TDataStream &stream) const
{
    stream << qint32(fActions.size());
    for (const QVariant &action : fActions)
        stream << action;
    TDataStreamAdaptor outer(stream);
    outer.startStore();
    stream << qint8(fMultipoint.active ? 1 : 0) << fMultipoint.avgWindow;
    TDataStreamAdaptor inner(stream);
    inner.startStore();
    stream << fMultipoint.algorithm << fMultipoint.lambda;
    inner.endStore();
    stream << qint32(fMultipoint.points.size());
    for (const TYrexBaselinePoint &point : fMultipoint.points)
        stream << point.x << point.y << qint8(point.kind);
    outer.endStore();
    TDataStreamAdaptor later(stream);
    later.startStore();
    later.endStore();
}

void TYrexProcParams::storeDefaults() const
{
    TDefaultsIni settings;
    for (const int id : TYrexProcDefaults::actionIds()) {
        const int index = indexOfAction(id);
        const QVariantMap map = index < 0 ? defaultMap(id) : action(index);
        for (const TYrexProcKey &key : TYrexProcDefaults::table()) {
            if (key.fAction == id && key.isInSettings() && map.contains(key.fKey))
                settings.setValue(key.fSettingsKey, map.value(key.fKey));
        }
    }
}

void TYrexProcParams::readMultipointDefaults()
{
    const TDefaultsIni settings;
    fMultipoint.avgWindow = settings.value(QLatin1String(cMultipointWindowKey), cDefaultWindow).toInt();
    fMultipoint.algorithm = settings.value(QLatin1String(cMultipointAlgorithmKey), cDefaultAlgorithm).toInt();
    fMultipoint.lambda = settings.value(QLatin1String(cMultipointLambdaKey), cDefaultLambda).toInt();
}

void TYrexProcParams::storeMultipointDefaults() const
{
    TDefaultsIni settings;
    settings.setValue(QLatin1String(cMultipointWindowKey), fMultipoint.avgWindow);
    settings.setValue(QLatin1String(cMultipointAlgorithmKey), fMultipoint.algorithm);
    settings.setValue(QLatin1String(cMultipointLambdaKey), fMultipoint.lambda);
}

QVector<TYrexProcReportEntry> TYrexProcParams::report() const
{
    QVector<TYrexProcReportEntry> entries;
    for (int i = 0; i < fActions.size(); ++i) {
        if (!isApplied(i))
            continue;
        TYrexProcReportEntry entry;
        entry.fTitle =
            translated(QT_TRANSLATE_NOOP("TYrexProcParams", "Processing Action: %1")).arg(label(actionId(i)));
        const QVariantMap map = action(i);
        for (auto it = map.begin(); it != map.end(); ++it) {
            if (it.key() != QLatin1String(cKeyApply) && it.key() != QLatin1String(cKeyOpId))
                entry.fParams.insert(it.key(), isEnumKey(it.key()) ? label(it.value().toInt()) : it.value());
        }
        entries.append(entry);
    }
    if (entries.isEmpty()) {
        // the misspelling is part of the text: scripts and older histories look for it
        entries.append({translated(QT_TRANSLATE_NOOP("TYrexProcParams", "Zarnu Procesing Actions")),
                        translated(QT_TRANSLATE_NOOP("TYrexProcParams", "None Applied")),
                        {}});
    }
    return entries;
}
