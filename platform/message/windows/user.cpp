#include "platform/message/windows/user.h"

#include <aclapi.h>
#include <sddl.h>

#include <stdexcept>

#include "platform/message/windows/last_error.h"
#include "platform/os/windows/handle.h"

namespace message {
namespace {

template <typename Text>
using LocalMemory = std::unique_ptr<Text, decltype(&LocalFree)>;

std::optional<std::wstring> SidText(PSID sid) {
  wchar_t* text = nullptr;
  if (ConvertSidToStringSidW(sid, &text) == 0) return std::nullopt;
  return LocalMemory<wchar_t>(text, &LocalFree).get();
}

std::optional<std::wstring> SidOfProcess(HANDLE process) {
  HANDLE opened = nullptr;
  if (OpenProcessToken(process, TOKEN_QUERY, &opened) == 0) return std::nullopt;
  const os::Handle token(opened);
  struct {
    TOKEN_USER user;
    std::byte sid[SECURITY_MAX_SID_SIZE];
  } answer;
  DWORD size = 0;
  if (GetTokenInformation(token.Get(), TokenUser, &answer, sizeof answer, &size) == 0)
    return std::nullopt;
  return SidText(answer.user.User.Sid);
}

}  // namespace

std::wstring UserSid() {
  const auto sid = SidOfProcess(GetCurrentProcess());
  if (!sid)
    throw std::runtime_error("the system does not tell who the user is: " + LastError().message());
  return *sid;
}

std::optional<bool> IsProcessOfUser(DWORD process) {
  const os::Handle opened(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, process));
  if (!opened) return std::nullopt;
  const auto sid = SidOfProcess(opened.Get());
  if (!sid) return std::nullopt;
  return sid == SidOfProcess(GetCurrentProcess());
}

bool IsPipeOfUser(HANDLE pipe) {
  PSID owner = nullptr;
  void* found = nullptr;
  if (GetSecurityInfo(pipe, SE_KERNEL_OBJECT, OWNER_SECURITY_INFORMATION, &owner, nullptr, nullptr,
                      nullptr, &found) != ERROR_SUCCESS)
    return false;
  const LocalMemory<void> descriptor(found, &LocalFree);
  return SidText(owner) == SidOfProcess(GetCurrentProcess());
}

OnlyForUser::OnlyForUser() : descriptor(nullptr, &LocalFree) {
  const std::wstring sid = UserSid();
  // The owner, and a list that nothing is inherited into, with all rights for one.
  const std::wstring text = L"O:" + sid + L"D:P(A;;FA;;;" + sid + L")";
  void* made = nullptr;
  if (ConvertStringSecurityDescriptorToSecurityDescriptorW(text.c_str(), SDDL_REVISION_1, &made,
                                                           nullptr) == 0)
    throw std::runtime_error("no access list can be made: " + LastError().message());
  descriptor.reset(made);
  attributes = {sizeof attributes, made, FALSE};
}

}  // namespace message
