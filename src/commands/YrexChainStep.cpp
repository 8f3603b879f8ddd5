#include "YrexChainStep.h"

#include "TYrexChainCheck.h"
#include "TYrexChainJson.h"
#include "TYrexProcDefaults.h"
#include "TYrexProcLabels.h"
#include "TYrexProcParams.h"
#include "commands/TScriptStep.h"
#include "stream/TDataStream.h"

#include <QCoreApplication>
#include <QSet>
#include <QStringList>
#include <cmath>
#include <functional>
#include <limits>

namespace {

const char *const cCurves[] = {"line segments", "smooth segments", "cubic splines", "Whittaker"};
const char cActionKey[] = "action";

QString translated(const char *text)
{
    return QCoreApplication::translate("YrexChainStep", text);
}

int idOf(const QVariant &action)
{
    return action.toMap().value(QLatin1String(cKeyOpId)).toInt();
}

bool isApplied(const QVariant &action)
{
    return action.toMap().value(QLatin1String(cKeyApply)).toBool();
}

QByteArray bytesOf(const QVariant &value)
{
    QByteArray bytes;
    TDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << value;
    return bytes;
}

QByteArray templateOf(const TYrexProcParams &params)
{
    QByteArray bytes = TYrexProcParams::templateHeader();
    TDataStream stream(&bytes, QIODevice::Append);
    params.write(stream);
    return bytes;
}

int lastPlaceOf(int id, const QVariantList &chain)
{
    for (int i = chain.size() - 1; i >= 0; --i) {
        if (idOf(chain.at(i)) == id)
            return i;
    }
    return -1;
}

/// The listed actions, and among them what every chain has: each kind that is not listed comes behind the one that it
/// followed in `before`.
QVariantList chainOf(const QVariantList &listed, const QVariantList &before)
{
    QSet<int> ids;
    for (const QVariant &action : listed)
        ids.insert(idOf(action));
    QVariantList chain = listed;
    int place = -1; // of the one before in `before`
    for (const QVariant &action : before) {
        const int id = idOf(action);
        if (!ids.contains(id) && TYrexProcDefaults::defaultChain().contains(id)) {
            QVariantMap map = action.toMap();
            map.insert(QLatin1String(cKeyApply), false);
            chain.insert(++place, map);
        } else if (ids.contains(id)) {
            place = lastPlaceOf(id, chain);
        }
    }
    for (const int id : TYrexProcDefaults::defaultChain()) {
        if (lastPlaceOf(id, chain) < 0)
            chain.append(TYrexProcDefaults::tableMap(id));
    }
    return chain;
}

bool isSame(const QVariantList &one, const QVariantList &other)
{
    return one.size() == other.size() && bytesOf(one) == bytesOf(other); // comparing variants rounds numbers
}

QVariantMap toldAction(const QVariant &action)
{
    const int id = idOf(action);
    const QVariantMap map = action.toMap();
    const QVariantMap table = TYrexProcDefaults::tableMap(id);
    QVariantMap told{{cActionKey, TYrexProcLabels::sourceLabel(id)}};
    if (!isApplied(action))
        told.insert(QLatin1String(cKeyApply), false);
    for (auto it = map.constBegin(); it != map.constEnd(); ++it) {
        const bool isOwn = it.key() != QLatin1String(cKeyOpId) && it.key() != QLatin1String(cKeyApply);
        if (!isOwn || (table.contains(it.key()) && bytesOf(table.value(it.key())) == bytesOf(it.value())))
            continue;
        const TYrexProcKey *key = TYrexProcDefaults::findKey(id, it.key());
        const bool isOption = key && key->fOptions.contains(it.value().toInt());
        told.insert(it.key(), isOption ? QVariant(TYrexProcLabels::sourceLabel(it.value().toInt())) : it.value());
    }
    return told;
}

/// The listed actions alone, with those that every chain gets.
QVariantList chainOfOnly(const QVariantList &listed)
{
    TYrexProcParams params;
    params.setActions(listed);
    return params.actions();
}

using TChainOf = std::function<QVariantList(const QVariantList &listed)>;

/// The fewest actions of which `chainOf` makes the chain; false when it cannot be told.
bool toldActions(const TChainOf &chainOf, const QVariantList &now, QVariantList &told)
{
    QVariantList listed = now;
    if (!isSame(chainOf(listed), now))
        return false;
    for (int i = listed.size() - 1; i >= 0; --i) {
        QVariantList fewer = listed;
        fewer.removeAt(i);
        if (!isApplied(listed.at(i)) && isSame(chainOf(fewer), now))
            listed = fewer;
    }
    for (const QVariant &action : qAsConst(listed))
        told.append(toldAction(action));
    QVariantList read;
    QString problem;
    QStringList warnings;
    return TYrexChainJson::parseActions(TYrexChainJson::toJson(told), read, problem, warnings) && warnings.isEmpty() &&
           isSame(read, listed);
}

bool isSame(const TYrexMultipointSetup &one, const TYrexMultipointSetup &other)
{
    return one.avgWindow == other.avgWindow && one.algorithm == other.algorithm && one.lambda == other.lambda &&
           one.points == other.points && one.active == other.active;
}

/// What stays when a step names none of it.
TYrexMultipointSetup plainSetup()
{
    TYrexMultipointSetup setup;
    setup.algorithm = TYrexMultipointSetup::cCubicSplines;
    return setup;
}

QVariantMap toldMultipoint(const TYrexMultipointSetup &now)
{
    const TYrexMultipointSetup plain = plainSetup();
    QVariantMap told;
    if (now.avgWindow != plain.avgWindow)
        told.insert("averaging", now.avgWindow);
    if (now.algorithm >= 0 && now.algorithm < int(std::size(cCurves)))
        told.insert("curve", cCurves[now.algorithm]);
    else
        told.insert("curve", now.algorithm);
    if (now.lambda != plain.lambda)
        told.insert("lambda", now.lambda);
    if (now.active)
        told.insert("active", true);
    QVariantList points;
    for (const TYrexBaselinePoint &point : now.points) {
        QVariantMap entry{{"x", point.x}, {"y", point.y}};
        if (point.kind != 0)
            entry.insert("kind", point.kind);
        points.append(entry);
    }
    if (!points.isEmpty())
        told.insert("points", points);
    return told;
}

bool isNumber(const QVariant &value)
{
    return value.userType() == QMetaType::Double || value.userType() == QMetaType::Int;
}

/// Reads the fields of an object, each of which may be missing, and notes the first that is wrong.
class TFields
{
public:
    TFields(const QVariantMap &map, QString &problem)
        : fMap(map)
        , fProblem(problem)
    {
    }
    ~TFields()
    {
        if (!fMap.isEmpty() && fProblem.isEmpty())
            fProblem = translated("\"%1\" is unknown").arg(fMap.firstKey());
    }
    QVariant take(const QString &name) { return fMap.take(name); }
    void take(const QString &name, double &number)
    {
        const QVariant value = fMap.take(name);
        if (isNumber(value))
            number = value.toDouble();
        else if (value.isValid())
            fail(name, translated("expected a number"));
    }
    void take(const QString &name, qint32 &number)
    {
        double value = number;
        take(name, value);
        if (value == std::floor(value) && std::abs(value) <= std::numeric_limits<qint32>::max())
            number = qint32(value);
        else
            fail(name, translated("expected a whole number"));
    }
    void fail(const QString &name, const QString &what)
    {
        if (fProblem.isEmpty())
            fProblem = QString("\"%1\": %2").arg(name, what);
    }

private:
    QVariantMap fMap;
    QString &fProblem;
};

void takeCurve(TFields &fields, qint32 &algorithm)
{
    const QVariant curve = fields.take("curve");
    const QStringList names(std::begin(cCurves), std::end(cCurves));
    const int place = isNumber(curve) ? curve.toInt() : names.indexOf(curve.toString());
    if (curve.isValid() && place < 0)
        fields.fail("curve", translated("expected one of %1").arg(names.join(", ")));
    else if (curve.isValid())
        algorithm = place;
}

} // namespace

void YrexChainStep::tell(TScriptStep &step, const TYrexProcParams &before, const TYrexProcParams &now)
{
    const QVariantList &old = before.actions();
    QVariantList actions;
    if (toldActions([&old](const QVariantList &listed) { return chainOf(listed, old); }, now.actions(), actions)) {
        step.with("actions", actions);
    } else if (toldActions(chainOfOnly, now.actions(), actions)) {
        step.with("actions", actions).with("only", true);
    } else {
        step.with("template", templateOf(now));
        return;
    }
    if (!isSame(before.multipoint(), now.multipoint()))
        step.with("multipoint", toldMultipoint(now.multipoint()));
}

bool YrexChainStep::setActions(const QVariantList &listed, bool isOnly, TYrexProcParams &params, QString &problem)
{
    QVariantList actions;
    QStringList warnings;
    if (!TYrexChainJson::parseActions(TYrexChainJson::toJson(listed), actions, problem, warnings))
        return false;
    if (!warnings.isEmpty()) {
        problem = warnings.first(); // a misspelt key, which chains in files may have
        problem.remove(QStringLiteral(" is kept"));
        return false;
    }
    params.setActions(isOnly ? chainOfOnly(actions) : chainOf(actions, params.actions()));
    return true;
}

bool YrexChainStep::setMultipoint(const QVariantMap &setup, TYrexProcParams &params, QString &problem)
{
    TYrexMultipointSetup read = plainSetup();
    {
        TFields fields(setup, problem);
        fields.take("averaging", read.avgWindow);
        fields.take("lambda", read.lambda);
        takeCurve(fields, read.algorithm);
        read.active = fields.take("active").toBool();
        for (const QVariant &entry : fields.take("points").toList()) {
            TYrexBaselinePoint point;
            TFields values(entry.toMap(), problem);
            values.take("x", point.x);
            values.take("y", point.y);
            values.take("kind", point.kind);
            read.points.append(point);
        }
    }
    if (problem.isEmpty())
        params.multipoint() = read;
    return problem.isEmpty();
}

bool YrexChainStep::setTemplate(const QByteArray &bytes, TYrexProcParams &params, QString &problem)
{
    TYrexProcParams read;
    TDataStream stream(bytes);
    if (read.readTemplate(stream) != TYrexProcParams::cReadOk || !stream.isGood())
        problem = translated("no processing template");
    for (const QVariant &action : read.actions()) {
        if (problem.isEmpty())
            problem = TYrexChainCheck::fatalProblem(action.toMap());
    }
    if (problem.isEmpty())
        params = read;
    return problem.isEmpty();
}
