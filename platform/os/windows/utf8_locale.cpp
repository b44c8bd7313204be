#include "platform/os/utf8_locale.h"

namespace os {

// File names are wide here: the libraries have no locale to convert them by.
struct Utf8Locale::State {};

Utf8Locale::Utf8Locale() = default;

Utf8Locale::~Utf8Locale() = default;

}  // namespace os
