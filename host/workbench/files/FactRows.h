#pragma once

#include <QString>

class QFormLayout;

/// Rows of a form that tell facts: a label, and a text that can be selected.
namespace FactRows {

/// Appends a fact; an empty text is none.
void add(QFormLayout &form, const QString &label, const QString &text);
/// The text behind a label; empty when there is none.
QString text(const QFormLayout &form, const QString &label);

} // namespace FactRows
