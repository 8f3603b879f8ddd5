#pragma once

#include <QString>

class TYrexProcParams;

/// Chains and their keys as plain text.
namespace TYrexChainText {

/// The actions of a chain that are applied, in order, with their values; "None Applied" for an idle chain.
QString report(const TYrexProcParams &chain);

/// Every action with its keys: type, default, options or range.
QString keys();

} // namespace TYrexChainText
