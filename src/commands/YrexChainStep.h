#pragma once

#include <QString>
#include <QVariantList>
#include <QVariantMap>

class TScriptStep;
class TYrexProcParams;

/// Chains as script steps tell them: the actions that take part, as objects like those of chains in JSON, with the
/// values that are not those of the table. What is not listed stays where and as it is, and is switched off.
namespace YrexChainStep {

/// Adds the arguments that make `now` of the chain `before`: "actions", "multipoint" where the set-up of that baseline
/// becomes another one, "only" where the chain holds no other actions, or "template" in their place for a chain that
/// cannot be told like that, as the bytes of a template.
void tell(TScriptStep &step, const TYrexProcParams &before, const TYrexProcParams &now);

/// Makes the chain of the listed actions, without others when `isOnly`. False, with `params` untouched and the problem
/// in words, for actions that are none, and values of another type or out of their range.
bool setActions(const QVariantList &listed, bool isOnly, TYrexProcParams &params, QString &problem);
/// The set-up of the multipoint baseline: "points" (x in points from 0, y, and kind), "averaging", "curve", "lambda"
/// and "active", all of which have defaults. False as above.
bool setMultipoint(const QVariantMap &setup, TYrexProcParams &params, QString &problem);
/// From the bytes of a template. False as above.
bool setTemplate(const QByteArray &bytes, TYrexProcParams &params, QString &problem);

} // namespace YrexChainStep
