#include "platform/os/appended_file.h"

#include "platform/os/file_error.h"
#include "platform/os/windows/handle.h"

namespace os {
namespace {

// A link is opened itself.
Handle OpenShared(const std::filesystem::path& file, DWORD access, DWORD disposition) {
  return Handle(CreateFileW(
      file.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
      disposition, FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
}

BY_HANDLE_FILE_INFORMATION InformationOf(const Handle& file) {
  BY_HANDLE_FILE_INFORMATION information{};
  GetFileInformationByHandle(file.Get(), &information);
  return information;
}

// A byte that no file has stands for the right to append.
OVERLAPPED LockedPlace() {
  OVERLAPPED place{};
  place.Offset = MAXDWORD;
  place.OffsetHigh = MAXLONG;
  return place;
}

std::runtime_error WriteError(const std::filesystem::path& file) {
  return FileError(file, "cannot be written: " + LastError().message());
}

}  // namespace

struct AppendedFile::System {
  Handle file;
};

AppendedFile::AppendedFile(const std::filesystem::path& file)
    : path(file), system(std::make_unique<System>()) {
  system->file = OpenShared(path, GENERIC_READ | GENERIC_WRITE, OPEN_ALWAYS);
  if (!system->file) throw WriteError(path);
  if (GetFileType(system->file.Get()) != FILE_TYPE_DISK)
    throw FileError(path, "is not a regular file");
  if ((InformationOf(system->file).dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0)
    throw FileError(path, "is a link");
}

AppendedFile::~AppendedFile() = default;

void AppendedFile::Lock() {
  OVERLAPPED place = LockedPlace();
  if (LockFileEx(system->file.Get(), LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &place) == 0)
    throw WriteError(path);
}

void AppendedFile::Unlock() {
  OVERLAPPED place = LockedPlace();
  UnlockFileEx(system->file.Get(), 0, 1, 0, &place);
}

bool AppendedFile::IsRemoved() const {
  FILE_STANDARD_INFO information{};
  GetFileInformationByHandleEx(system->file.Get(), FileStandardInfo, &information,
                               sizeof information);
  return information.DeletePending != 0;
}

bool AppendedFile::IsInPlace() const {
  const BY_HANDLE_FILE_INFORMATION own = InformationOf(system->file);
  const BY_HANDLE_FILE_INFORMATION named =
      InformationOf(OpenShared(path, FILE_READ_ATTRIBUTES, OPEN_EXISTING));
  return named.dwVolumeSerialNumber == own.dwVolumeSerialNumber &&
         named.nFileIndexHigh == own.nFileIndexHigh && named.nFileIndexLow == own.nFileIndexLow;
}

std::uintmax_t AppendedFile::Size() const {
  const BY_HANDLE_FILE_INFORMATION own = InformationOf(system->file);
  return (static_cast<std::uintmax_t>(own.nFileSizeHigh) << 32) + own.nFileSizeLow;
}

void AppendedFile::Write(std::string_view bytes) {
  HANDLE file = system->file.Get();
  LARGE_INTEGER end{};
  end.QuadPart = static_cast<LONGLONG>(Size());
  DWORD written = 0;
  if (SetFilePointerEx(file, end, nullptr, FILE_BEGIN) != 0 &&
      WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) != 0 &&
      written == bytes.size())
    return;
  const std::runtime_error error = WriteError(path);
  if (written > 0 && SetFilePointerEx(file, end, nullptr, FILE_BEGIN) != 0) SetEndOfFile(file);
  throw error;
}

}  // namespace os
