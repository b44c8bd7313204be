#include "manager/companion_service/masked_log.h"

#include <algorithm>
#include <cerrno>
#include <string>
#include <utility>

#include "manager/companion_service/file_failure.h"

namespace companion {
namespace {

constexpr std::size_t kBlock = std::size_t{64} << 10;
constexpr std::size_t kLongestIdentifier = 1 << 10;

// Whether the text can be parted here without parting an identifier: its neighbourhood comes out
// the same in one piece and in two.
bool CanBeCutAt(std::string_view text, std::size_t place, const machine::IdentifierMask& mask) {
  const std::string_view left = text.substr(place - kLongestIdentifier, kLongestIdentifier);
  const std::string_view right = text.substr(place, kLongestIdentifier);
  const std::string_view both(left.data(), left.size() + right.size());
  return mask.Apply(both) == mask.Apply(left) + mask.Apply(right);
}

// Bytes at the beginning that can be masked for themselves: whole lines, or a piece of a long one.
std::size_t LengthOfPiece(std::string_view text, const machine::IdentifierMask& mask) {
  if (const std::size_t feed = text.rfind('\n'); feed != text.npos) return feed + 1;
  if (text.size() < kBlock) return 0;
  const std::size_t last = text.size() - kLongestIdentifier;
  for (std::size_t place = last; place > last - kLongestIdentifier; --place)
    if (CanBeCutAt(text, place, mask)) return place;
  return last;
}

}  // namespace

std::size_t MaskedLog::GoToLastLines(std::size_t lines) {
  std::ifstream stream = Open();
  stream.seekg(0, std::ios::end);
  const std::streamoff end = stream.tellg();
  std::string block;
  for (std::streamoff place = end; place > 0;) {
    block.resize(static_cast<std::size_t>(std::min<std::streamoff>(place, kBlock)));
    place -= static_cast<std::streamoff>(block.size());
    stream.clear();
    stream.seekg(place);
    ReadBlock(stream, block);
    for (std::size_t i = block.size(); i-- > 0;) {
      const std::streamoff next = place + static_cast<std::streamoff>(i) + 1;
      if (block[i] != '\n' || next == end || --lines > 0) continue;
      begin = next;
      return 0;
    }
  }
  begin = 0;
  return end > 0 ? lines - 1 : lines;
}

void MaskedLog::Read(const machine::IdentifierMask& mask,
                     const std::function<void(std::string_view)>& take) const {
  std::ifstream stream = Open();
  stream.seekg(begin);
  std::string block(kBlock, '\0');
  std::string pending;
  const auto readBlock = [&] { return ReadBlock(stream, block); };
  for (std::string_view read = readBlock(); !read.empty(); read = readBlock()) {
    pending += read;
    const std::size_t length = LengthOfPiece(pending, mask);
    if (length > 0) take(mask.Apply(std::string_view(pending).substr(0, length)));
    pending.erase(0, length);
  }
  if (!pending.empty()) take(mask.Apply(std::string_view(pending)));
}

std::ifstream MaskedLog::Open() const {
  errno = 0;
  std::ifstream stream(path, std::ios::binary);
  if (!stream) throw LastFailure(path, "the file cannot be read");
  return stream;
}

std::string_view MaskedLog::ReadBlock(std::ifstream& stream, std::string& block) const {
  errno = 0;
  stream.read(block.data(), static_cast<std::streamsize>(block.size()));
  if (stream.bad()) throw LastFailure(path, "the file cannot be read");
  return std::string_view(block).substr(0, static_cast<std::size_t>(stream.gcount()));
}

}  // namespace companion
