#include <gmock/gmock.h>
#include <windows.h>

#include <aclapi.h>
#include <sddl.h>

#include <string>

#include "common/text.h"
#include "platform/message/broker.h"
#include "platform/message/broker_connection.h"
#include "platform/message/local_stream.h"
#include "platform/message/windows/pipe_client.h"
#include "platform/message/windows/user.h"
#include "tests/message/raw_peer.h"
#include "tests/support/temporary_folder.h"

namespace {

using message::LocalAddress;
using testing::HasSubstr;
using testing::ThrowsMessage;

// Owner and access list of a pipe, as text.
std::string SecurityOf(HANDLE pipe) {
  constexpr SECURITY_INFORMATION kAsked = OWNER_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION;
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  GetSecurityInfo(pipe, SE_KERNEL_OBJECT, kAsked, nullptr, nullptr, nullptr, nullptr, &descriptor);
  wchar_t* text = nullptr;
  ConvertSecurityDescriptorToStringSecurityDescriptorW(descriptor, SDDL_REVISION_1, kAsked, &text,
                                                       nullptr);
  std::string narrow = text != nullptr ? common::WideToUtf8(text) : "";
  LocalFree(text);
  LocalFree(descriptor);
  return narrow;
}

// A pipe whose first instance somebody made before the broker.
os::Handle MakePipe(const std::filesystem::path& name, const wchar_t* security) {
  SECURITY_ATTRIBUTES attributes{sizeof attributes, nullptr, FALSE};
  ConvertStringSecurityDescriptorToSecurityDescriptorW(security, SDDL_REVISION_1,
                                                       &attributes.lpSecurityDescriptor, nullptr);
  os::Handle pipe(CreateNamedPipeW(name.c_str(), PIPE_ACCESS_DUPLEX | FILE_FLAG_OVERLAPPED,
                                   PIPE_TYPE_BYTE, PIPE_UNLIMITED_INSTANCES, 4096, 4096, 0,
                                   &attributes));
  LocalFree(attributes.lpSecurityDescriptor);
  return pipe;
}

TEST(BrokerSocket, HasOnePipeForEveryWayToWriteItsPathAndNoOther) {
  const std::wstring deep = L"C:\\用户\\" + std::wstring(300, L'x');
  const std::vector<std::vector<std::wstring>> sockets = {
      {L"C:\\Users\\Änne\\a b.sock", L"c:/users/ÄNNE/a b.sock",
       L"C:\\Users\\.\\x\\..\\änne\\A B.SOCK"},
      {L"C:\\Users\\Anne\\a b.sock"},
      {L"C:\\Users\\Änne\\ab.sock"},
      {deep + L"1", deep + L"/./1\\..\\..\\" + std::wstring(300, L'X') + L"1"},
      {deep + L"2"},
      {L"C:\\用戶\\" + std::wstring(300, L'x') + L"1"},
      {L"\\\\.\\pipe\\a b.sock"},
      {message::DefaultBrokerSocket().native()},
  };
  std::set<std::wstring> names;
  for (const auto& ways : sockets) {
    const std::wstring name = LocalAddress(ways[0]).native();
    EXPECT_TRUE(names.insert(name).second) << common::WideToUtf8(ways[0]);
    EXPECT_TRUE(name.starts_with(L"\\\\.\\pipe\\"));
    EXPECT_EQ(name.find(L'\\', 9), std::wstring::npos);
    EXPECT_LE(name.size(), 256u);
    for (const auto& way : ways) EXPECT_EQ(LocalAddress(way).native(), name);
  }
  EXPECT_EQ(LocalAddress(L"\\\\.\\PIPE\\A").native(), L"\\\\.\\PIPE\\A");
  EXPECT_EQ(LocalAddress(message::DefaultBrokerSocket()), message::DefaultBrokerSocket());
  for (const std::size_t length : {0, 248})
    EXPECT_THAT([&] { LocalAddress(L"\\\\.\\pipe\\" + std::wstring(length, L'x')); },
                ThrowsMessage<std::runtime_error>(HasSubstr("the name of a pipe")));
}

TEST(BrokerSocket, IsForItsUserAlone) {
  const TemporaryFolder folder;
  const message::Broker broker(folder.path / "a.sock");
  const os::Handle pipe = message::OpenPipe(LocalAddress(folder.path / "a.sock"));
  const std::string sid = common::WideToUtf8(message::UserSid());
  EXPECT_EQ(SecurityOf(pipe.Get()), "O:" + sid + "D:P(A;;FA;;;" + sid + ")");
}

TEST(BrokerSocket, OfAnotherUserIsNeitherServedAtNorSpokenTo) {
  const TemporaryFolder folder;
  const std::filesystem::path socket = folder.path / "a.sock";
  const os::Handle squatter = MakePipe(LocalAddress(socket), L"O:SYD:(A;;FA;;;WD)");
  ASSERT_TRUE(squatter);
  EXPECT_FALSE(message::ConnectToBroker(socket));
  message::DisconnectFromBroker();
  const os::Handle again = MakePipe(LocalAddress(socket), L"O:SYD:(A;;FA;;;WD)");
  EXPECT_THAT([&] { message::Broker broker(socket); },
              ThrowsMessage<std::runtime_error>(HasSubstr("a program of another user")));
}

}  // namespace
