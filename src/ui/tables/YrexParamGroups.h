#pragma once

class QString;

/// How the table of parameters is divided.
namespace YrexParamGroups {

enum TGroup { cGeneral, cAxes, cInstrument, cProvenance, cOther, cGroupCount };

/// Where parameters of that id stand; what is not known goes to the others.
TGroup groupOf(int id);
/// The place within the group; parameters without a place of their own follow those that have one.
int placeOf(int id);
QString title(TGroup group);

} // namespace YrexParamGroups
