#pragma once

#include <rapidjson/document.h>

#include <string>
#include <vector>

/// The topmost window as an answer to `dump` tells of it.
class ShownWindow {
 public:
  using Control = rapidjson::Value;

  explicit ShownWindow(const std::string& answer);

  const Control& Root() const { return answer["tree"]; }

  /// The controls of that name that show, in tree order. "lytHardware[1]/txtTitle" are those below
  /// the second control "lytHardware" that shows.
  std::vector<const Control*> Find(const std::string& path) const;

  /// What a property ("text", "enabled", "selected" or "height") of those controls is, "a | b x3"
  /// for an a and three b. "-" when none shows.
  std::string Tell(const std::string& path, const std::string& property) const;

  /// Where the window breaks what always holds of the pages; empty when nowhere.
  std::string Faults() const;

 private:
  rapidjson::Document answer;
};

/// "a | b x3" for an a and three b.
std::string Listed(const std::vector<std::string>& values);
