#include "YrexParamGroups.h"

#include "params/TSpectrumParam.h"

#include <QCoreApplication>
#include <QHash>
#include <QVector>

namespace {

using TP = TSpectrumParam;

// what only instruments write has no names in the code
constexpr int cName = 2021;
constexpr int cMemo = 2022;
constexpr int cLogComment = 2023;
constexpr int cUser = 2024;
constexpr int cAnalysisDate = 4600;
constexpr int cImageName = 4601;
constexpr int cResolution = 2020;
constexpr int cFirstInstrument = 2025;
constexpr int cLastInstrument = 2042;
constexpr int cFirstSpInstrument = 4602;
constexpr int cLastSpInstrument = 4615;

/// The ids of each group in their order.
const QVector<QVector<int>> &groups()
{
    static const QVector<QVector<int>> cGroups = [] {
        QVector<QVector<int>> made(YrexParamGroups::cGroupCount);
        made[YrexParamGroups::cGeneral] = {
            TP::cTitle,    TP::cClass, TP::cSeriesValue, TP::cDescription, TP::cComment,
            cName,         cMemo,      cLogComment,      TP::cDate,        cAnalysisDate,
            TP::cOperator, cUser,      TP::cOrigin,      TP::cOwner,       TP::cExperiment};
        made[YrexParamGroups::cAxes] = {TP::cOrigXUnits, TP::cOrigYUnits,   TP::cXUnits,      TP::cYUnits,
                                        TP::cPointCount, TP::cOriginalSize, TP::cSubfileZ,    TP::cSubfileNextZ,
                                        TP::cSubfileW,   TP::cSubfileNoise, TP::cSubfileIndex};
        made[YrexParamGroups::cInstrument] = {TP::cInstrument, TP::cAcqTime, cResolution};
        for (int id = cFirstInstrument; id <= cLastInstrument; ++id)
            made[YrexParamGroups::cInstrument].append(id);
        for (int id = cFirstSpInstrument; id <= cLastSpInstrument; ++id)
            made[YrexParamGroups::cInstrument].append(id);
        made[YrexParamGroups::cProvenance] = {TP::cOriginalName, TP::cDataType, TP::cModificationDate, cImageName,
                                              TP::cHistory};
        return made;
    }();
    return cGroups;
}

struct TPlace
{
    YrexParamGroups::TGroup fGroup;
    int fPlace;
};

const QHash<int, TPlace> &places()
{
    static const QHash<int, TPlace> cPlaces = [] {
        QHash<int, TPlace> made;
        for (int group = 0; group < groups().size(); ++group) {
            for (int place = 0; place < groups().at(group).size(); ++place)
                made.insert(groups().at(group).at(place), {YrexParamGroups::TGroup(group), place});
        }
        return made;
    }();
    return cPlaces;
}

} // namespace

YrexParamGroups::TGroup YrexParamGroups::groupOf(int id)
{
    return places().value(id, {cOther, 0}).fGroup;
}

int YrexParamGroups::placeOf(int id)
{
    constexpr int cBehind = 1000;
    return places().value(id, {cOther, cBehind + id}).fPlace;
}

QString YrexParamGroups::title(TGroup group)
{
    switch (group) {
    case cGeneral:
        return QCoreApplication::translate("YrexParamGroups", "General");
    case cAxes:
        return QCoreApplication::translate("YrexParamGroups", "Axes");
    case cInstrument:
        return QCoreApplication::translate("YrexParamGroups", "Instrument");
    case cProvenance:
        return QCoreApplication::translate("YrexParamGroups", "Provenance");
    default:
        return QCoreApplication::translate("YrexParamGroups", "Other");
    }
}
