#pragma once

namespace DuiLib {

/// A procedure of the DuiWindow library, which lies beside this one and stays loaded; null where it
/// cannot be loaded.
void* WindowLibraryProcedure(const char* name);

}  // namespace DuiLib
