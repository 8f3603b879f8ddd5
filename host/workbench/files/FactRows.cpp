#include "FactRows.h"

#include <QFormLayout>
#include <QLabel>

namespace FactRows {

void add(QFormLayout &form, const QString &label, const QString &text)
{
    if (text.isEmpty())
        return;
    auto *value = new QLabel(text);
    value->setTextFormat(Qt::PlainText); // it comes from a file
    value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    value->setWordWrap(true);
    form.addRow(new QLabel(label), value);
}

QString text(const QFormLayout &form, const QString &label)
{
    for (int row = 0; row < form.rowCount(); ++row) {
        const auto *name = qobject_cast<QLabel *>(form.itemAt(row, QFormLayout::LabelRole)->widget());
        const auto *value = qobject_cast<QLabel *>(form.itemAt(row, QFormLayout::FieldRole)->widget());
        if (name && value && name->text() == label)
            return value->text();
    }
    return {};
}

} // namespace FactRows
