#include "ui/TMarkup.h"

#include <algorithm>

const TMarkupAction *TMarkup::action(const QString &name) const
{
    const auto found = std::find_if(fActions.begin(), fActions.end(),
                                    [&](const TMarkupAction &action) { return action.fName == name; });
    return found == fActions.end() ? nullptr : &*found;
}

QString markupText(const QString &text)
{
    QString out;
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c == '&') {
            out += "&&";
        } else if (c != '_') {
            out += c;
        } else if (i + 1 < text.size() && text.at(i + 1) == '_') {
            out += '_';
            ++i;
        } else {
            out += '&';
        }
    }
    return out;
}
