#include "platform/duiwindow/pictures.h"

#include <wx/imagpng.h>
#include <wx/mstream.h>

#include <stdexcept>
#include <string>

#include "common/file.h"
#include "common/log.h"
#include "common/path_text.h"

namespace duiwindow {
namespace {

constexpr std::size_t kMostSources = 64;
constexpr std::size_t kMostBitmaps = 256;
constexpr std::size_t kLargestFile = 8 << 20;
constexpr double kLargeDots = 2;

wxImage Read(const std::filesystem::path& file) {
  wxImage image;
  std::string reason;
  try {
    const std::string bytes = common::ReadFile(file, kLargestFile);
    wxMemoryInputStream stream(bytes.data(), bytes.size());
    if (wxPNGHandler().LoadFile(&image, stream, false)) return image;
    reason = common::PathText(file) + ": this is no PNG picture";
  } catch (const std::runtime_error& error) {
    reason = error.what();
  }
  COMMON_LOG_WARN(log4cxx::Logger::getLogger("orv.duilib"), reason);
  return {};
}

// The picture with twice the dots: "name@2x.png".
std::filesystem::path LargeFile(const std::filesystem::path& file) {
  std::filesystem::path name = file.stem();
  name += "@2x";
  name += file.extension();
  return file.parent_path() / name;
}

void Tint(wxImage& image, std::uint32_t argb) {
  if (!image.HasAlpha()) image.InitAlpha();
  const wxRect all(0, 0, image.GetWidth(), image.GetHeight());
  image.SetRGB(all, static_cast<unsigned char>(argb >> 16), static_cast<unsigned char>(argb >> 8),
               static_cast<unsigned char>(argb));
  const unsigned opacity = argb >> 24;
  unsigned char* const alpha = image.GetAlpha();
  for (int dot = 0; dot < all.width * all.height; ++dot) {
    alpha[dot] = static_cast<unsigned char>(alpha[dot] * opacity / 255);
  }
}

}  // namespace

Pictures::Pictures() : sources(kMostSources), bitmaps(kMostBitmaps) {}

const Pictures::Source& Pictures::SourceOf(const std::filesystem::path& file, bool large) {
  return sources.Get({file, large}, [&]() -> Source {
    std::error_code ignored;
    const auto largeFile = LargeFile(file);
    if (large && std::filesystem::exists(largeFile, ignored)) return {Read(largeFile), kLargeDots};
    return {Read(file), 1};
  });
}

Pictures::Size Pictures::OwnSize(const std::filesystem::path& file, double scale) {
  const Source& source = SourceOf(file, scale > 1);
  if (!source.image.IsOk()) return {};
  return {source.image.GetWidth() / source.dotsPerPoint,
          source.image.GetHeight() / source.dotsPerPoint};
}

const wxGraphicsBitmap& Pictures::At(const std::filesystem::path& file, double scale, wxSize dots,
                                     std::optional<std::uint32_t> tint) {
  return bitmaps.Get({file, scale > 1, dots.x, dots.y, tint}, [&] {
    wxImage image = SourceOf(file, scale > 1).image;
    if (image.GetSize() != dots) image = image.Scale(dots.x, dots.y, wxIMAGE_QUALITY_HIGH);
    if (tint) {
      image = image.Copy();
      Tint(image, *tint);
    }
    return wxGraphicsRenderer::GetDefaultRenderer()->CreateBitmapFromImage(image);
  });
}

}  // namespace duiwindow
