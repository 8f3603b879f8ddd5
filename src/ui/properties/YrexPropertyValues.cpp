#include "YrexPropertyValues.h"

#include "T1DYrexPlot.h"
#include "TCanvasYrexSpectrum.h"
#include "TYrexSpectrumPropertiesBag.h"
#include "TYrexSpectrumPropertyFields.h"
#include "settings/TDefaultsIni.h"

#include <QCoreApplication>

namespace {

constexpr double cDefAngle = 15.0;    // degrees
constexpr double cJournalFont = 24.0; // canvas units

const char *const cAxes[] = {"axes.horizontal.", "axes.vertical."};

QVariantMap fieldsOf(T1DYrexPlot &plot)
{
    QVariantMap fields;
    for (const TYrexSpectrumPropertyField &field : yrexSpectrumPropertyFields())
        fields.insert(field.key, field.read(plot));
    return fields;
}

void removeWith(QVariantMap &fields, const QString &prefix)
{
    for (const QString &key : fields.keys()) {
        if (key.startsWith(prefix))
            fields.remove(key);
    }
}

QVariantMap standard()
{
    T1DYrexPlot plot(T1DYrexPlot::cSpectrumKind, QUuid(), nullptr);
    return fieldsOf(plot);
}

/// What the figures of journals have in common: all of it black, in a box with ticks inside, one column wide.
QVariantMap journal()
{
    QVariantMap fields{{"curve.pen.color", QColor(Qt::black)},
                       {"axes.color", QColor(Qt::black)},
                       {"plot.frame", int(boxFrame)},
                       {"axes.tickDirection", int(ticksIn)}};
    for (const char *key :
         {"title.font.size", "axes.font.size", "axes.titleFont.size", "peaks.font.size", "integrals.font.size"})
        fields.insert(key, cJournalFont);
    for (const char *axis : cAxes) {
        fields.insert(QString(axis) + "majorGrid", false);
        fields.insert(QString(axis) + "minorGrid", false);
    }
    return fields;
}

/// The built-in values of what the other preset sets.
QVariantMap standardOf(const QVariantMap &fields)
{
    const QVariantMap all = standard();
    QVariantMap values;
    for (auto it = fields.constBegin(); it != fields.constEnd(); ++it)
        values.insert(it.key(), all.value(it.key()));
    return values;
}

} // namespace

namespace YrexPropertyValues {

QVariantMap builtIn(const TCanvasYrexSpectrum &item)
{
    QVariantMap fields = standard();
    removeWith(fields, QStringLiteral("spare.")); // nothing that a control shows
    fields.remove(QStringLiteral("peaks.otherColor"));
    fields.remove(QStringLiteral("stack.classes")); // those of this item
    for (const char *axis : cAxes)
        fields.remove(QString(axis) + "label");
    fields.insert(QStringLiteral("stack.angle"), TDefaultsIni().value("Zarnu/Stack/Angle", cDefAngle));
    fields.insert(QStringLiteral("stack.displayMode"), int(item.isStacked() ? overlayMode : activeOnlyMode));
    return fields;
}

QVariantMap formatOf(const TCanvasYrexSpectrum &item)
{
    TYrexSpectrumPropertiesBag bag;
    bag.fillFrom(item);
    QVariantMap fields = bag.values();
    removeWith(fields, QStringLiteral("spare."));
    if (!item.isStacked())
        removeWith(fields, QStringLiteral("stack."));
    for (const char *axis : cAxes) {
        if (fields.value(QString(axis) + "labelFromData").toBool())
            fields.remove(QString(axis) + "label");
        fields.remove(QString(axis) + "step"); // in units that the other plot may not have
    }
    return fields;
}

QVariantMap defaultsOf(const TCanvasYrexSpectrum &item)
{
    TYrexSpectrumPropertiesBag bag;
    bag.fillFrom(item);
    QVariantMap fields = bag.values();
    fields.remove(QStringLiteral("stack.classes")); // names that mean something here only
    for (const char *axis : cAxes) {
        if (fields.value(QString(axis) + "labelFromData").toBool())
            fields.remove(QString(axis) + "label");
    }
    return fields;
}

const QVector<TPreset> &presets()
{
    static const QVector<TPreset> cPresets = {
        {QT_TRANSLATE_NOOP("YrexProperties", "Journal"), journal(), "sizeOneColumn"},
        {QT_TRANSLATE_NOOP("YrexProperties", "Standard"), standardOf(journal()), ""}};
    return cPresets;
}

} // namespace YrexPropertyValues
