#include "TYrexTemplatesAsList.h"

#include "TYrexParamEdit.h"
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

/// A text that is there is never a null one.
QString textOf(const QVariantMap &map, const char *name)
{
    const QString text = map.value(name).toString();
    return map.contains(name) && text.isNull() ? QString("") : text;
}

QString readEntry(const QVariantMap &map, TSpectrumParamsTemplate &templates)
{
    for (auto it = map.constBegin(); it != map.constEnd(); ++it) {
        const QStringList known{cParameter, cExpression, cSource, cDimension, cVisible, cPrecision, cReadOnly};
        if (!known.contains(it.key()))
            return tr("\"%1\" is no part of a template").arg(it.key());
    }
    const int id = YrexParamEdit::idOfName(map.value(cParameter).toString());
    if (id == 0)
        return tr("\"%1\" is no parameter").arg(map.value(cParameter).toString());
    const QString expression = textOf(map, cExpression);
    TSpectrumParam entry(id, expression, textOf(map, cSource), map.value(cDimension, cAllDimensions).toInt());
    entry.setVisible(map.value(cVisible, entry.isVisible()).toBool());
    entry.setPrecision(map.value(cPrecision, entry.precision()).toInt());
    entry.setReadOnly(map.value(cReadOnly, entry.isReadOnly()).toBool());
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
