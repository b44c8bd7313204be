// Reports as smartctl does about the drives that a test knows.

#include <cstdio>
#include <cstring>

int main(int count, char** words) {
  if (count != 4 || std::strcmp(words[1], "--json") != 0 || std::strcmp(words[2], "-a") != 0)
    return 1;
  if (std::strcmp(words[3], "/dev/pd0") == 0) {
    std::puts(R"({"smart_status": {"passed": true}})");
    return 0;
  }
  if (std::strcmp(words[3], "/dev/pd10") == 0) {
    std::puts(R"({"smart_status": {"passed": false}})");
    return 8;
  }
  std::puts(R"({"smartctl": {"exit_status": 2}})");
  return 2;
}
