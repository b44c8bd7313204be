#include "platform/duiwindow/shadows.h"

#include <wx/image.h>

#include <algorithm>
#include <cmath>
#include <vector>

namespace duiwindow {
namespace {

constexpr std::size_t kMostShadows = 24;
constexpr int kMostDots = 16 << 20;
constexpr int kPasses = 3;  // of a plain blur; more are not told from a bell curve

using Mask = std::vector<float>;  // rows of a square, 0 to 1

// How much of a dot lies in a box with round corners.
float Cover(double x, double y, double from, double to, double radius) {
  const double outX = std::max({from + radius - x, x - (to - radius), 0.0});
  const double outY = std::max({from + radius - y, y - (to - radius), 0.0});
  return static_cast<float>(std::clamp(radius - std::hypot(outX, outY) + 0.5, 0.0, 1.0));
}

Mask SharpMask(int side, int blur, int radius) {
  Mask mask(static_cast<std::size_t>(side) * side);
  for (int y = 0; y < side; ++y) {
    for (int x = 0; x < side; ++x) {
      mask[static_cast<std::size_t>(y) * side + x] =
          Cover(x + 0.5, y + 0.5, blur, side - blur, std::max(radius, 1));
    }
  }
  return mask;
}

// The mean over `reach` dots on both sides, along one line of the mask.
void BlurLine(float* line, int count, int stride, int reach, std::vector<float>& copy) {
  for (int at = 0; at < count; ++at) copy[at] = line[static_cast<std::ptrdiff_t>(at) * stride];
  const auto width = static_cast<float>(2 * reach + 1);
  float sum = 0;
  for (int at = 0; at < std::min(reach, count); ++at) sum += copy[at];
  for (int at = 0; at < count; ++at) {
    if (at + reach < count) sum += copy[at + reach];
    if (at - reach - 1 >= 0) sum -= copy[at - reach - 1];
    line[static_cast<std::ptrdiff_t>(at) * stride] = std::max(sum, 0.0F) / width;
  }
}

void Blur(Mask& mask, int side, int blur) {
  const int reach = std::max(1, blur / kPasses);
  std::vector<float> copy(side);
  for (int pass = 0; pass < kPasses; ++pass) {
    for (int y = 0; y < side; ++y)
      BlurLine(&mask[static_cast<std::size_t>(y) * side], side, 1, reach, copy);
    for (int x = 0; x < side; ++x) BlurLine(&mask[x], side, side, reach, copy);
  }
}

// The dot of the small mask that stands for one of the large picture: the corners as they are, what
// lies between them is all alike.
int SmallOf(int at, int length, int side) {
  const int half = side / 2;
  if (at < half) return at;
  return at >= length - half ? side - (length - at) : half;
}

wxGraphicsBitmap MakeShadow(const ShadowShape& shape) {
  const int width = shape.width + 2 * shape.blur;
  const int height = shape.height + 2 * shape.blur;
  const int radius = std::min({shape.radius, shape.width / 2, shape.height / 2});
  // A box so small that both its ends fit into the shape, so large that its middle is unblurred.
  const int core = std::min({2 * (radius + shape.blur) + 1, shape.width, shape.height});
  const int side = core + 2 * shape.blur;
  Mask mask = SharpMask(side, shape.blur, radius);
  Blur(mask, side, shape.blur);

  wxImage image(width, height, false);
  image.SetRGB(wxRect(0, 0, width, height), static_cast<unsigned char>(shape.argb >> 16),
               static_cast<unsigned char>(shape.argb >> 8), static_cast<unsigned char>(shape.argb));
  image.InitAlpha();
  unsigned char* alpha = image.GetAlpha();
  const auto opacity = static_cast<float>(shape.argb >> 24);
  for (int y = 0; y < height; ++y) {
    const float* const row = &mask[static_cast<std::size_t>(SmallOf(y, height, side)) * side];
    for (int x = 0; x < width; ++x) {
      *alpha++ = static_cast<unsigned char>(row[SmallOf(x, width, side)] * opacity + 0.5F);
    }
  }
  return wxGraphicsRenderer::GetDefaultRenderer()->CreateBitmapFromImage(image);
}

}  // namespace

Shadows::Shadows() : bitmaps(kMostShadows) {}

const wxGraphicsBitmap& Shadows::Of(const ShadowShape& shape) {
  const auto dots =
      static_cast<std::int64_t>(shape.width + 2 * shape.blur) * (shape.height + 2 * shape.blur);
  if (shape.width <= 0 || shape.height <= 0 || dots > kMostDots) return wxNullGraphicsBitmap;
  return bitmaps.Get(shape, [&] { return MakeShadow(shape); });
}

}  // namespace duiwindow
