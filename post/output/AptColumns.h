#pragma once

namespace host {

/// The columns of a line that hold its statement in a standard APT source. Some readers cut what
/// stands behind them, in the middle of a number too, and tell nobody.
inline constexpr int kStatementColumns = 72;

}  // namespace host
