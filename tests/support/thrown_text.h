#pragma once

#include <exception>
#include <string>

// What the exception says that a call ends with; empty when it ends without.
template <typename Call>
std::string ThrownText(const Call& call) {
  try {
    call();
    return {};
  } catch (const std::exception& error) {
    return error.what();
  }
}
