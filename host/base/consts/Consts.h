#pragma once

#include <QUuid>

/// Names that the programs and their plug-ins agree on.
namespace Consts {

namespace Common {

// {3d756ac7-4b6e-5a36-a71c-909e0e368d26}
inline constexpr QUuid yrexPluginBaseID(0x3d756ac7, 0x4b6e, 0x5a36, 0xa7, 0x1c, 0x90, 0x9e, 0x0e, 0x36, 0x8d, 0x26);
// {029ac64a-bc7c-5441-ada7-654853392f1e}
inline constexpr QUuid yrexPluginSecondID(0x029ac64a, 0xbc7c, 0x5441, 0xad, 0xa7, 0x65, 0x48, 0x53, 0x39, 0x2f, 0x1e);
// {a5720a1a-e05b-5224-9f24-55e753b44a87}
inline constexpr QUuid drawPluginBaseID(0xa5720a1a, 0xe05b, 0x5224, 0x9f, 0x24, 0x55, 0xe7, 0x53, 0xb4, 0x4a, 0x87);
// {61007679-70ad-5f60-ac2d-d7b54b5a3ab4}
inline constexpr QUuid daPluginBaseID(0x61007679, 0x70ad, 0x5f60, 0xac, 0x2d, 0xd7, 0xb5, 0x4b, 0x5a, 0x3a, 0xb4);
// {aad6a080-fc7d-5338-8916-348d129b2a43}
inline constexpr QUuid jcampPluginBaseID(0xaad6a080, 0xfc7d, 0x5338, 0x89, 0x16, 0x34, 0x8d, 0x12, 0x9b, 0x2a, 0x43);

// Mouse modes of the host.
// {af2b2321-a5c7-5f32-9024-7182e3488c06}
inline constexpr QUuid expansionModeID(0xaf2b2321, 0xa5c7, 0x5f32, 0x90, 0x24, 0x71, 0x82, 0xe3, 0x48, 0x8c, 0x06);
// {e2e208d8-5855-598f-8988-4455e667f177}
inline constexpr QUuid zoomInModeID(0xe2e208d8, 0x5855, 0x598f, 0x89, 0x88, 0x44, 0x55, 0xe6, 0x67, 0xf1, 0x77);
// {3ad817aa-7409-599a-b7a6-437c69cbf32c}
inline constexpr QUuid zoomOutModeID(0x3ad817aa, 0x7409, 0x599a, 0xb7, 0xa6, 0x43, 0x7c, 0x69, 0xcb, 0xf3, 0x2c);
// {155c5223-3b83-58e0-bbfe-979597ed0a88}
inline constexpr QUuid rangesHideModeID(0x155c5223, 0x3b83, 0x58e0, 0xbb, 0xfe, 0x97, 0x95, 0x97, 0xed, 0x0a, 0x88);
// {d8b41997-f752-504d-90cf-64c471af3486}
inline constexpr QUuid rangesShowModeID(0xd8b41997, 0xf752, 0x504d, 0x90, 0xcf, 0x64, 0xc4, 0x71, 0xaf, 0x34, 0x86);
// {8e974d31-db48-5984-bd62-a045b5b54281}
inline constexpr QUuid crosshairModeID(0x8e974d31, 0xdb48, 0x5984, 0xbd, 0x62, 0xa0, 0x45, 0xb5, 0xb5, 0x42, 0x81);
// {d6aad486-a824-527d-911f-f7f77e9a311c}
inline constexpr QUuid panModeID(0xd6aad486, 0xa824, 0x527d, 0x91, 0x1f, 0xf7, 0xf7, 0x7e, 0x9a, 0x31, 0x1c);

inline constexpr char cKelmoraMime[] = "application/x-kelmora-items";
inline constexpr char cKelmoraMimeZarnuPlots[] = "application/x-kelmora-zarnu-plots";
inline constexpr char cPageNavigatorDragId[] = "application/x-kelmora-page-drag";

} // namespace Common

/// Names of what the host tells its plug-ins.
namespace Events {

inline constexpr char cDocLoaded[] = "docLoaded";
inline constexpr char cDocSaved[] = "docSaved";
inline constexpr char cDocClosed[] = "docClosed";
inline constexpr char cPageChanged[] = "pageChanged";
inline constexpr char cThemeChanged[] = "themeChanged";

} // namespace Events

/// Keys of a converter's meta data.
namespace Converter {

inline constexpr char cPluginName[] = "pluginName";
inline constexpr char cFileFormat[] = "fileFormat";
inline constexpr char cTitleStr[] = "title";
inline constexpr char cTooltipStr[] = "tooltip";
inline constexpr char cExperimentStr[] = "experiment";
inline constexpr char cExperimentDescStr[] = "experimentDescription";
inline constexpr char cDimNum[] = "dimNum";
inline constexpr char cXRangeStr[] = "xRange"; // first and last x of the first spectrum

} // namespace Converter

/// Texts of script errors.
namespace Script {

inline constexpr char cIncorrectNumberOfArgs[] = "Incorrect number of arguments";
inline constexpr char cIncorrectArguments[] = "Incorrect arguments";

} // namespace Script

} // namespace Consts
