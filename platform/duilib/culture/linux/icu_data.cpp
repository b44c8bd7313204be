#include "platform/duilib/culture/icu_data.h"

namespace DuiLib {

void ProvideIcuData() {}  // the system's ICU brings it

}  // namespace DuiLib
