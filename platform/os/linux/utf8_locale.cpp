#include "platform/os/utf8_locale.h"

#include <locale.h>

namespace os {

struct Utf8Locale::State {
  locale_t utf8 = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  locale_t before = uselocale(utf8);  // a null locale changes nothing
};

Utf8Locale::Utf8Locale() : state(std::make_unique<State>()) {}

Utf8Locale::~Utf8Locale() {
  uselocale(state->before);
  if (state->utf8 != nullptr) freelocale(state->utf8);
}

}  // namespace os
