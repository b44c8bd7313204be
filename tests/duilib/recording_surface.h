#pragma once

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "common/text.h"
#include "platform/duilib/painter/surface.h"

namespace DuiLib {

/// Keeps what is painted as one line each.
class RecordingSurface final : public Surface {
 public:
  std::vector<std::string> Take() { return std::exchange(lines, {}); }

  void PushClip(const Rect& rect) override { Add("clip", Text(rect)); }
  void PopClip() override { Add("unclip", ""); }
  void FillBox(const Box& box, const Fill& fill) override {
    Add("fill", Text(box) + Colour(fill.argb) + (fill.endArgb ? ">" + Colour(*fill.endArgb) : ""));
  }
  void DrawBorder(const Box& box, int width, std::uint32_t argb) override {
    Add("border", Text(box) + Colour(argb) + " " + std::to_string(width));
  }
  void DrawShadow(const Box& box, int blur, std::uint32_t) override {
    Add("shadow", Text(box) + " " + std::to_string(blur));
  }
  void DrawPicture(const std::filesystem::path& file, const Rect& room,
                   std::optional<std::uint32_t> tint) override {
    Add("picture", file.filename().string() + " " + Text(room) + (tint ? Colour(*tint) : ""));
  }
  void DrawText(std::wstring_view text, const Font&, std::uint32_t argb, Point start) override {
    Add("text", common::WideToUtf8(text) + " " + std::to_string(start.x) + "," +
                    std::to_string(start.y) + Colour(argb));
  }

 private:
  void Add(const char* what, const std::string& how) {
    lines.push_back(how.empty() ? what : what + (" " + how));
  }
  static std::string Text(const Rect& rect) {
    return std::to_string(rect.left) + "," + std::to_string(rect.top) + "," +
           std::to_string(rect.right) + "," + std::to_string(rect.bottom);
  }
  static std::string Text(const Box& box) {
    return Text(box.rect) + (box.radius == 0 ? "" : " r" + std::to_string(box.radius));
  }
  static std::string Colour(std::uint32_t argb) {
    char text[16];
    std::snprintf(text, sizeof text, " %08X", static_cast<unsigned>(argb));
    return text;
  }

  std::vector<std::string> lines;
};

}  // namespace DuiLib
