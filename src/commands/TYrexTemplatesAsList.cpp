#include "TYrexTemplatesAsList.h"

#include "TYrexParamEdit.h"
#include "TYrexStepValues.h"
#include "params/TSpectrumParamsTemplate.h"

#include <QCoreApplication>

namespace {

const char cParameter[] = "parameter";
const char cExpression[] = "expression";
const char cSource[] = "source";
const char cDimension[] = "dimension";
const char cVisible[] = "visible";
const char cPrecision[] = "precision";
const char cReadOnly[] = "readOnly";

constexpr int cAllDimensions = -1;

QString tr(const char *text)
{
    return QCoreApplication::translate("YrexTemplatesAsList", text);
}

QVariantMap toldEntry(const TSpectrumParam &entry)
{
    const TSpectrumParam usual(entry.id(), QString(), QString(), cAllDimensions);
    QVariantMap map{{cParameter, YrexParamEdit::toldName(entry.id())}};
    if (!entry.expression().isNull())
        map.insert(cExpression, entry.expression());
    if (!entry.source().isNull())
        map.insert(cSource, entry.source());
    if (entry.dim() != cAllDimensions)
        map.insert(cDimension, entry.dim());
    if (entry.isVisible() != usual.isVisible())
        map.insert(cVisible, entry.isVisible());
    if (entry.precision() != usual.precision())
        map.insert(cPrecision, entry.precision());
    if (entry.isReadOnly() != usual.isReadOnly())
        map.insert(cReadOnly, entry.isReadOnly());
    return map;
}

bool readText(const QVariantMap &map, const char *name, QString &text)
{
    if (!map.contains(name))
        return true; // null
    text = map.value(name).toString();
    if (text.isNull())
        text = QString("");
    return map.value(name).userType() == QMetaType::QString;
}

bool readWhole(const QVariantMap &map, const char *name, int &number)
{
    return !map.contains(name) || YrexStepValues::readWhole(map.value(name), number);
}

bool readFlag(const QVariantMap &map, const char *name, bool &flag)
{
    flag = map.value(name, flag).toBool();
    return map.value(name, flag).userType() == QMetaType::Bool;
}

QString readEntry(const QVariantMap &map, TSpectrumParamsTemplate &templates)
{
    const QStringList known{cParameter, cExpression, cSource, cDimension, cVisible, cPrecision, cReadOnly};
    for (auto it = map.constBegin(); it != map.constEnd(); ++it) {
        if (!known.contains(it.key()))
            return tr("\"%1\" is no part of a template").arg(it.key());
    }
    const int id = YrexParamEdit::idOfName(map.value(cParameter).toString());
    if (id == 0)
        return tr("\"%1\" is no parameter").arg(map.value(cParameter).toString());
    QString expression;
    QString source;
    int dimension = cAllDimensions;
    if (!readText(map, cExpression, expression) || !readText(map, cSource, source))
        return tr("expression and source are texts");
    if (!readWhole(map, cDimension, dimension) || dimension < cAllDimensions ||
        dimension >= TSpectrumParam::cMaxDimensions)
        return tr("dimension is -1 for all or a number from 0");
    TSpectrumParam entry(id, expression, source, dimension);
    int precision = entry.precision();
    bool isVisible = entry.isVisible();
    bool isReadOnly = entry.isReadOnly();
    if (!readWhole(map, cPrecision, precision) || !readFlag(map, cVisible, isVisible) ||
        !readFlag(map, cReadOnly, isReadOnly))
        return tr("precision is a whole number, visible and readOnly are true or false");
    entry.setVisible(isVisible);
    entry.setPrecision(precision);
    entry.setReadOnly(isReadOnly);
    templates.set(entry);
    return QString();
}

} // namespace

QVariantList YrexTemplatesAsList::told(const TSpectrumParamsTemplate &templates)
{
    QVariantList list;
    for (const TSpectrumParam &entry : templates)
        list.append(toldEntry(entry));
    return list;
}

QString YrexTemplatesAsList::read(const QVariantList &list, TSpectrumParamsTemplate &templates)
{
    QString problem;
    for (const QVariant &entry : list) {
        if (problem.isEmpty())
            problem = readEntry(entry.toMap(), templates);
    }
    return problem;
}
