#pragma once

#include "TYrexProcParams.h"
#include "TYrexSpectrum.h"
#include "params/TSpectrumParam.h"
#include "settings/TDefaultsIni.h"

#include <gtest/gtest.h>

// So that a failed comparison of texts shows them.
inline void PrintTo(const QString &text, std::ostream *out)
{
    *out << '"' << text.toStdString() << '"';
}

/// Every test starts with an empty settings store in memory.
class ChainTest : public ::testing::Test
{
protected:
    void SetUp() override { TDefaultsIni::setStore(TDefaultsIni::memory); }

    static QVariantMap actionMap(int id, bool apply, const QVariantMap &values = {})
    {
        QVariantMap map = values;
        map.insert(QStringLiteral("yrexProcOpId"), id);
        map.insert(QStringLiteral("apply"), apply);
        return map;
    }
    static QVector<int> ids(const TYrexProcParams &params)
    {
        QVector<int> list;
        for (int i = 0; i < params.actionCount(); ++i)
            list.append(params.actionId(i));
        return list;
    }
    /// A spectrum of these values in that y unit, x from 0 to n - 1, whose unit parameter can be set.
    static void fill(TYrexSpectrum &spectrum, const QVector<double> &values, int yUnit)
    {
        spectrum.setPointCount(values.size());
        spectrum.setValues(values);
        spectrum.copyDataToOrgData();
        spectrum.copyDataToAbsOrgData();
        spectrum.setAxis(0.0, values.size() - 1, 1.0, 0.0, 1.0);
        spectrum.setOrigUnits(0, yUnit);
        spectrum.setUnits(0, yUnit);
        if (!spectrum.params().getParam(TSpectrumParam::cYUnits))
            spectrum.params().append(TSpectrumParam(TSpectrumParam::cYUnits, QString(), QString(), 1));
    }
};
