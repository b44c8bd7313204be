#pragma once

namespace DuiLib {

/// Sees to it that ICU finds its data; before the first use of ICU. What fails is logged, and ICU
/// then answers with errors. Any thread.
void ProvideIcuData();

}  // namespace DuiLib
