#include "tests/support/comma_locale.h"

#include <clocale>

#include "tests/support/comma_numbers.h"

CommaLocale::CommaLocale()
    : before(std::locale::global(std::locale(
          std::locale(std::locale::classic(), new CommaNumbers<char>), new CommaNumbers<wchar_t>))),
      numeric(std::setlocale(LC_NUMERIC, nullptr)) {
  std::setlocale(LC_NUMERIC, "German_Germany");
}

CommaLocale::~CommaLocale() {
  std::setlocale(LC_NUMERIC, numeric.c_str());
  std::locale::global(before);
}

bool CommaLocale::InForce() const {
  return *std::localeconv()->decimal_point == ',';
}
