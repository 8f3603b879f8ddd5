#pragma once

#include <QString>

class TYrexSpectrum;

/// Sets parameters of spectra as a user edits them.
namespace YrexParamEdit {

/// Sets the text, with what the record keeps of it, and marks the parameter as edited, so that it outlives an
/// evaluation of the file's own parameters. Title and class are added to a spectrum that has none; any other parameter
/// that the spectrum lacks stays absent. Whether anything changed.
bool set(TYrexSpectrum &spectrum, int id, const QString &text);

/// The name by which scripts tell a parameter: its programmatic name, or the number where that names another one.
QString toldName(int id);
/// The id of such a name; 0 where there is none.
int idOfName(const QString &name);

} // namespace YrexParamEdit
