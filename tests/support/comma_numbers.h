#pragma once

#include <locale>
#include <string>

/// Numbers with a decimal comma and points between thousands.
template <typename Char>
class CommaNumbers final : public std::numpunct<Char> {
 protected:
  Char do_decimal_point() const override { return ','; }
  Char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};
