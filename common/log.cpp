#include "common/log.h"

#include <log4cxx/helpers/loglog.h>
#include <log4cxx/helpers/transcoder.h>

#include <exception>

#include "common/text.h"

namespace common {

std::string OneLine(std::wstring_view text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string line;
  line.reserve(text.size());
  for (const char32_t c : WideToUtf32(text)) {
    if (c >= 0x20 && c < 0x7F) {
      line.push_back(static_cast<char>(c));
      continue;
    }
    line += c > 0xFFFF ? "\\U" : "\\u";
    for (int shift = c > 0xFFFF ? 28 : 12; shift >= 0; shift -= 4)
      line.push_back(kDigits[(c >> shift) & 0xF]);
  }
  return line;
}

std::string OneLine(std::string_view text) {
  return OneLine(Utf8ToWide(text));
}

std::string DescribeCurrentException() {
  try {
    throw;
  } catch (const std::exception& error) {
    return error.what();
  } catch (...) {
    return "an exception of unknown type";
  }
}

void ReportLogFailure() noexcept {
  try {
    log4cxx::LogString reason;
    log4cxx::helpers::Transcoder::decodeUTF8(OneLine(DescribeCurrentException()), reason);
    log4cxx::helpers::LogLog::error(LOG4CXX_STR("An log4cxx exception occurred."));
    log4cxx::helpers::LogLog::error(reason);
  } catch (...) {
    // Nobody is left to tell.
  }
}

}  // namespace common
