#include <cxxabi.h>
#include <gmock/gmock.h>

#include <cstdlib>
#include <fstream>
#include <map>
#include <memory>
#include <set>
#include <string>

#include "tests/plugins_manager/library_names.h"

namespace {

using Names = std::set<std::string>;

// A function's name alone: how wide its parameters are differs from system to system.
std::string ReadableName(const std::string& symbol) {
  int status = 0;
  const std::unique_ptr<char, decltype(&std::free)> demangled(
      abi::__cxa_demangle(symbol.c_str(), nullptr, nullptr, &status), &std::free);
  if (status != 0) return symbol;
  std::string name = demangled.get();
  name = name.substr(0, name.find('('));
  return name.substr(0, name.find("[abi:"));
}

// Which of them a module imports differs from system to system.
bool IsRunTimeType(const std::string& symbol) {
  return symbol.starts_with("_ZTI");
}

// A fenced list below a heading for each library.
std::map<std::string, Names> PublishedNames() {
  std::map<std::string, Names> names;
  std::ifstream page(PUBLISHED_IMPORTS);
  std::string library;
  bool inList = false;
  for (std::string line; std::getline(page, line);) {
    if (line.starts_with("## ")) library = line.substr(3);
    if (line == "```")
      inList = !inList;
    else if (inList)
      names[library].insert(line);
  }
  return names;
}

// Any other symbol could be bound to by a library that stays, and would keep the plugin loaded.
TEST(PluginLibrary, ExportsItsEntryPointsAndNothingElse) {
  EXPECT_THAT(
      ExportedNames(PLUGIN),
      testing::UnorderedElementsAre("x3InitializePlugin", "x3UninitializePlugin", "x3InitPlugin",
                                    "x3FreePlugin", "x3InternalCreate", "x3CreateObject"));
}

// It has to load against libraries that are not this project's.
TEST(PluginLibrary, ImportsOfEachPlatformLibraryWhatIsPublishedAndNothingElse) {
  const std::map<std::string, Names> published = PublishedNames();
  for (const auto& [library, file] : {std::pair{"Util", UTIL}, std::pair{"DuiLib", DUILIB},
                                      std::pair{"PluginsManager", MANAGER}}) {
    const auto found = published.find(library);
    Names onPageOnly = found == published.end() ? Names() : found->second;
    Names inPluginOnly;
    for (const std::string& symbol : ImportedNames(PLUGIN, file))
      if (!IsRunTimeType(symbol)) inPluginOnly.insert(ReadableName(symbol));
    std::erase_if(inPluginOnly,
                  [&](const std::string& name) { return onPageOnly.erase(name) > 0; });
    EXPECT_THAT(inPluginOnly, testing::IsEmpty()) << "of " << library << ", not published";
    // With sanitizers more is inlined, or less.
    if (IS_SANITIZED) onPageOnly.clear();
    EXPECT_THAT(onPageOnly, testing::IsEmpty()) << "of " << library << ", not imported";
  }
}

TEST(PluginLibrary, ItsManagerExportsWhatItLooksUp) {
  EXPECT_THAT(ExportedNames(MANAGER),
              testing::IsSupersetOf({"x3RegisterPlugin", "x3UnregisterPlugin"}));
}

}  // namespace
