#include <gmock/gmock.h>

#include <sstream>

#include "platform/os/process.h"
#include "tests/cli/run_program.h"
#include "tests/support/temporary_folder.h"

namespace {

using namespace std::chrono_literals;

// Frames of these widths show the reports one by one; each tells what cannot be seen or read well.
constexpr const char* kWatcher = R"html(<!DOCTYPE html>
<meta charset="utf-8">
<pre id="found"></pre>
<script>
const widths = [390, 1280];
const found = document.getElementById('found');

function brightness(colour) {
  const parts = colour.match(/[\d.]+/g).slice(0, 3).map(part => part / 255)
    .map(part => part <= 0.03928 ? part / 12.92 : ((part + 0.055) / 1.055) ** 2.4);
  return 0.2126 * parts[0] + 0.7152 * parts[1] + 0.0722 * parts[2];
}

function paperOf(element, view) {
  for (let at = element; at; at = at.parentElement) {
    const colour = view.getComputedStyle(at).backgroundColor;
    if (!/, 0\)$/.test(colour)) return colour;
  }
  return 'rgb(255, 255, 255)';
}

function contrast(one, other) {
  const [low, high] = [brightness(one), brightness(other)].sort((a, b) => a - b);
  return (high + 0.05) / (low + 0.05);
}

function look(view, say) {
  const page = view.document.documentElement;
  if (page.scrollWidth > page.clientWidth) say('wider than the window');
  const heading = [...view.document.querySelectorAll('thead')];
  for (const element of view.document.querySelectorAll('body *')) {
    if (element.closest('.past') || heading.some(each => each.contains(element))) continue;
    const box = element.getBoundingClientRect();
    if (box.width > 0 && (box.right > page.clientWidth + 0.5 || box.left < -0.5))
      say(element.tagName + ' sticks out: ' + element.textContent);
    const hasText = [...element.childNodes].some(node => node.nodeType === 3 && node.data.trim());
    if (!hasText) continue;
    const ink = view.getComputedStyle(element).color;
    const paper = paperOf(element, view);
    if (contrast(ink, paper) < 4.5) say(ink + ' on ' + paper + ': ' + element.textContent);
  }
  found.textContent += brightness(paperOf(view.document.body, view)) < 0.5 ? 'dark ' : 'light ';
}

const names = location.hash.slice(1).split(',');
for (const name of names)
  for (const width of widths) {
    const frame = document.createElement('iframe');
    frame.style.cssText = `width: ${width}px; height: 900px; border: 0`;
    frame.onload = () => look(frame.contentWindow,
      fault => found.textContent += `\n${name} at ${width}: ${fault}\n`);
    frame.src = name;
    document.body.append(frame);
  }
</script>
)html";

std::string FoundIn(const std::string& page) {
  const std::string begin = "<pre id=\"found\">";
  const std::size_t at = page.find(begin);
  if (at == std::string::npos) return page;
  return page.substr(at + begin.size(), page.find("</pre>", at) - at - begin.size());
}

// In a browser, on a telephone and on a wide screen, with a run that found much, one with odd names
// and one that says little.
TEST(ReportLook, NothingSticksOutOrFadesInEitherWidthSchemeOrLanguage) {
  Program program;
  std::string names;
  int reports = 0;
  for (const std::string machine : {"failing", "odd", "hundred-disks"})
    for (const std::string language : {"en-US", "zh-CN"}) {
      const std::string name = machine + "-" + language + ".html";
      program.language = language;
      program.RunOn(MACHINE_FILES + machine + ".json", {"run", "--report", program.Path(name)});
      names += (names.empty() ? "" : ",") + name;
      ++reports;
    }
  WriteText(program.Path("watcher.html"), kWatcher);

  const struct {
    const char* scheme;  // as the browser counts them
    const char* paper;
  } schemes[] = {{"0", "dark "}, {"1", "light "}};
  for (const auto& [scheme, paper] : schemes) {
    std::string fault;
    const auto shown = os::RunProcess(
        {"chromium", "--headless", "--no-sandbox", "--disable-gpu", "--disable-web-security",
         "--allow-file-access-from-files", "--user-data-dir=" + program.Path("browser"),
         std::string("--blink-settings=preferredColorScheme=") + scheme,
         "--virtual-time-budget=10000", "--dump-dom",
         "file://" + program.Path("watcher.html") + "#" + names},
        120s, &fault);
    ASSERT_TRUE(shown) << "chromium " << fault;
    std::string clean;
    for (int i = 0; i < 2 * reports; ++i) clean += paper;
    EXPECT_EQ(FoundIn(shown->output), clean);
  }
}

}  // namespace
