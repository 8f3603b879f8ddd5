#pragma once

#include <QString>
#include <QVariantList>

class TSpectrumParamsTemplate;

/// The recipes of parameters as scripts have them, a list of {parameter, expression, source, dimension, visible,
/// precision, readOnly}. All but the parameter may be missing, where they are as a new entry has them; no expression is
/// another thing than an empty one.
namespace YrexTemplatesAsList {

QVariantList told(const TSpectrumParamsTemplate &templates);
/// The other way. What is wrong, in words; empty when nothing is.
QString read(const QVariantList &list, TSpectrumParamsTemplate &templates);

} // namespace YrexTemplatesAsList
