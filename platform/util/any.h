#pragma once

#include <any>

// The dynamically typed cell of the data store.
namespace linb {
using std::any;
using std::any_cast;
using std::bad_any_cast;
}  // namespace linb
