#include "platform/os/windows/start_process.h"

#include <memory>

#include "common/text.h"

namespace os {
namespace {

// As the C library's start-up reads it: back slashes count double in front of a quote alone.
void AppendQuoted(std::wstring& line, const std::wstring& word) {
  if (!word.empty() && word.find_first_of(L" \t\n\v\"") == std::wstring::npos) {
    line += word;
    return;
  }
  line += L'"';
  std::size_t backslashes = 0;
  for (const wchar_t c : word) {
    if (c == L'"') line.append(backslashes + 1, L'\\');
    backslashes = c == L'\\' ? backslashes + 1 : 0;
    line += c;
  }
  line.append(backslashes, L'\\');
  line += L'"';
}

// Empty where there is no such program. The folders of the search path come before the system's
// own, and the current folder never.
std::wstring FindProgram(const std::wstring& name) {
  std::wstring folders(GetEnvironmentVariableW(L"PATH", nullptr, 0), L'\0');
  folders.resize(GetEnvironmentVariableW(L"PATH", folders.data(), folders.size()));
  wchar_t system[MAX_PATH];
  folders += L';';
  folders.append(system, GetSystemDirectoryW(system, MAX_PATH));

  std::wstring found(SearchPathW(folders.c_str(), name.c_str(), L".exe", 0, nullptr, nullptr),
                     L'\0');
  found.resize(SearchPathW(folders.c_str(), name.c_str(), L".exe", static_cast<DWORD>(found.size()),
                           found.data(), nullptr));
  return found;
}

Handle OpenNothing(DWORD access) {
  SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
  return Handle(CreateFileW(L"NUL", access, FILE_SHARE_READ | FILE_SHARE_WRITE, &inheritable,
                            OPEN_EXISTING, 0, nullptr));
}

Handle MakeJob() {
  Handle job(CreateJobObjectW(nullptr, nullptr));
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  SetInformationJobObject(job.Get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);
  return job;
}

// The list of handles that a new process inherits.
class Inheritance {
 public:
  explicit Inheritance(std::vector<HANDLE> inherited) : handles(std::move(inherited)) {
    SIZE_T size = 0;
    InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
    storage.reset(new std::byte[size]);
    if (InitializeProcThreadAttributeList(List(), 1, 0, &size) == 0) return;
    initialised = true;
    UpdateProcThreadAttribute(List(), 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST, handles.data(),
                              handles.size() * sizeof(HANDLE), nullptr, nullptr);
  }
  Inheritance(const Inheritance&) = delete;
  Inheritance& operator=(const Inheritance&) = delete;
  ~Inheritance() {
    if (initialised) DeleteProcThreadAttributeList(List());
  }

  LPPROC_THREAD_ATTRIBUTE_LIST List() const {
    return reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(storage.get());
  }

 private:
  std::vector<HANDLE> handles;
  std::unique_ptr<std::byte[]> storage;
  bool initialised = false;
};

}  // namespace

std::wstring CommandLineOf(const std::vector<std::string>& words) {
  std::wstring line;
  for (const std::string& word : words) {
    if (!line.empty()) line += L' ';
    AppendQuoted(line, common::Utf8ToWide(word));
  }
  return line;
}

StartedProcess StartProcess(const std::vector<std::string>& words, HANDLE output, HANDLE errors) {
  const std::wstring program = FindProgram(common::Utf8ToWide(words.at(0)));
  if (program.empty()) {
    SetLastError(ERROR_FILE_NOT_FOUND);
    return {};
  }
  const Handle noInput = OpenNothing(GENERIC_READ);
  const Handle noOutput = OpenNothing(GENERIC_WRITE);

  STARTUPINFOEXW start{};
  start.StartupInfo.cb = sizeof start;
  start.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
  start.StartupInfo.hStdInput = noInput.Get();
  start.StartupInfo.hStdOutput = output == nullptr ? noOutput.Get() : output;
  start.StartupInfo.hStdError = errors == nullptr ? noOutput.Get() : errors;
  std::vector<HANDLE> inherited = {noInput.Get(), noOutput.Get()};
  for (HANDLE given : {output, errors})
    if (given != nullptr) inherited.push_back(given);
  const Inheritance inheritance(std::move(inherited));
  start.lpAttributeList = inheritance.List();

  StartedProcess started;
  started.job = MakeJob();
  std::wstring line = CommandLineOf(words);
  PROCESS_INFORMATION information{};
  if (CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE,
                     EXTENDED_STARTUPINFO_PRESENT | DETACHED_PROCESS | CREATE_SUSPENDED |
                         CREATE_NEW_PROCESS_GROUP,
                     nullptr, nullptr, &start.StartupInfo, &information) == 0)
    return {};
  started.process = Handle(information.hProcess);
  const Handle thread(information.hThread);
  AssignProcessToJobObject(started.job.Get(), started.process.Get());
  ResumeThread(thread.Get());
  return started;
}

}  // namespace os
