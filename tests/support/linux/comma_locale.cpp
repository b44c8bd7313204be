#include "tests/support/comma_locale.h"

#include <clocale>
#include <cstdlib>
#include <string_view>

#include "tests/support/comma_numbers.h"

namespace {

// A compiled LC_NUMERIC category of the C library: its mark, six members, where each begins, and
// these: the decimal point, the one between thousands, the grouping, both again as wide characters,
// the name of the encoding.
constexpr std::string_view kCommaNumeric{
    "\x14\x11\x03\x20\x06\0\0\0"
    "\x20\0\0\0\x22\0\0\0\x24\0\0\0\x28\0\0\0\x2C\0\0\0\x30\0\0\0"
    ",\0.\0\3\3\0\0,\0\0\0.\0\0\0ANSI_X3.4-1968\0",
    63};

}  // namespace

CommaLocale::CommaLocale()
    : before(std::locale::global(std::locale(
          std::locale(std::locale::classic(), new CommaNumbers<char>), new CommaNumbers<wchar_t>))),
      numeric(std::setlocale(LC_NUMERIC, nullptr)) {
  WriteText(folder.path / "comma/LC_NUMERIC", std::string(kCommaNumeric));
  setenv("LOCPATH", folder.path.c_str(), 1);
  std::setlocale(LC_NUMERIC, "comma");
}

CommaLocale::~CommaLocale() {
  std::setlocale(LC_NUMERIC, numeric.c_str());
  unsetenv("LOCPATH");
  std::locale::global(before);
}

bool CommaLocale::InForce() const {
  return *std::localeconv()->decimal_point == ',';
}
