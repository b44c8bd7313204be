#include <gtest/gtest.h>

#include "platform/message/ipc_message_client.h"
#include "platform/os/module.h"

namespace {

constexpr const char* kModule = HANDLER_MODULE;

os::ModuleHandle module = nullptr;

void UnloadModule() {
  os::ReleaseModule(std::exchange(module, nullptr));
}

template <typename Function>
Function Procedure(const char* name) {
  return reinterpret_cast<Function>(os::FindProcedure(module, name));
}

class UnloadTest : public testing::Test {
 protected:
  UnloadTest() { module = os::LoadModule(kModule); }

  void PostToModule() {
    tagIPC_MESSAGE_ITEM item;
    item.target = 2;
    item.messageId = 1;
    EXPECT_TRUE(sender.PostIPCMessage(item));
    message::WaitUntilDelivered();
  }

  static bool IsLoaded(const void* address) { return os::ModuleOfAddress(address) != nullptr; }

  CIPCMessageClient sender{1, false};
  int calls = 0;
};

TEST_F(UnloadTest, AHandlerWhoseModuleIsGoneIsDropped) {
  ASSERT_NE(module, nullptr);
  CIPCMessageClient receiver(2, false);
  const auto registerOn = Procedure<void (*)(CIPCMessageClient*, int*)>("RegisterOn");
  registerOn(&receiver, &calls);
  PostToModule();
  EXPECT_EQ(calls, 1);
  UnloadModule();
  ASSERT_FALSE(IsLoaded(reinterpret_cast<const void*>(registerOn)));
  PostToModule();
  EXPECT_EQ(calls, 1);
}

TEST_F(UnloadTest, AModuleLetGoOfInsideItsHandlerStaysUntilTheHandlerReturns) {
  ASSERT_NE(module, nullptr);
  const auto registerOwn = Procedure<void (*)(std::uint32_t, void (*)(), int*)>("RegisterOwn");
  registerOwn(2, &UnloadModule, &calls);
  PostToModule();
  EXPECT_EQ(calls, 1) << "the code after the unload ran";
  EXPECT_FALSE(IsLoaded(reinterpret_cast<const void*>(registerOwn)));
  PostToModule();
  EXPECT_EQ(calls, 1);
}

}  // namespace
