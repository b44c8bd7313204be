#include "platform/message/message_capture.h"

#include <exception>
#include <locale>
#include <mutex>
#include <optional>
#include <sstream>
#include <utility>

#include "common/log.h"
#include "platform/message/capture_line.h"
#include "platform/os/append_file.h"

namespace message {
namespace {

struct Capture {
  std::mutex mutex;
  std::optional<os::LineFile> file;  // none: nothing is captured
};

Capture& TheCapture() {
  static auto& capture = *new Capture;
  return capture;
}

std::string HexBytes(const std::vector<std::uint8_t>& bytes) {
  constexpr const char* kDigits = "0123456789abcdef";
  std::string text;
  text.reserve(2 * bytes.size());
  for (const std::uint8_t byte : bytes) {
    text += kDigits[byte >> 4];
    text += kDigits[byte & 15];
  }
  return text;
}

std::string CaptureLine(const tagIPC_MESSAGE_ITEM& item, const std::vector<std::uint8_t>& body) {
  return R"({"target":")" + HexNumber(item.target) + R"(","source":")" + HexNumber(item.source) +
         R"(","message":")" + HexNumber(item.messageId) + R"(","reply":")" +
         HexNumber(item.replyId) + R"(","body":")" + HexBytes(body) + R"("})";
}

}  // namespace

std::string HexNumber(std::uint32_t number) {
  std::ostringstream text;
  text.imbue(std::locale::classic());
  text << "0x" << std::hex << std::uppercase << number;
  return text.str();
}

void StartCapture(const std::filesystem::path& file) {
  os::LineFile opened(file);
  Capture& capture = TheCapture();
  const std::lock_guard lock(capture.mutex);
  capture.file = std::move(opened);
}

void CaptureMessage(const tagIPC_MESSAGE_ITEM& item, const std::vector<std::uint8_t>& body) {
  Capture& capture = TheCapture();
  const std::lock_guard lock(capture.mutex);
  if (!capture.file) return;
  try {
    capture.file->Append(CaptureLine(item, body));
  } catch (const std::exception& error) {
    COMMON_LOG_ERROR(log4cxx::Logger::getLogger("orv.message"),
                     "message " + HexNumber(item.messageId) + " is not captured: " + error.what());
  }
}

}  // namespace message
