#include "sysdiagnose/plugin/frame/module_frame.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "platform/util/data_manager.h"

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

std::vector<std::string> events;            // what the manager was told, in order
std::vector<std::string> offeredClassIds;   // at the last registration
std::vector<const x3::ClassEntry*> tables;  // the class map under test

x3::ClassMap MadeUpClasses() {
  return tables.data();
}

bool ORV_STDCALL Factory(const char*, x3::InterfaceId, x3::IObject**) {
  return false;
}

os::ModuleHandle ModuleOf(const void* address) {
  return os::ModuleOfAddress(address);
}

}  // namespace

extern "C" ORV_EXPORT bool ORV_STDCALL x3RegisterPlugin(x3::CreateFunction create, void* module,
                                                        const char* const* classIds) {
  events.emplace_back(create == &Factory && module == &tables ? "register" : "register wrongly");
  offeredClassIds.clear();
  for (; *classIds != nullptr; ++classIds) offeredClassIds.emplace_back(*classIds);
  return false;
}

extern "C" ORV_EXPORT bool ORV_STDCALL x3UnregisterPlugin(x3::CreateFunction create) {
  events.emplace_back(create == &Factory ? "unregister" : "unregister wrongly");
  return false;
}

namespace {

// Says which row made it; counts those alive.
class Made final : public x3::IObject {
 public:
  explicit Made(const char* madeBy) : row(madeBy) { ++alive; }
  ~Made() override { --alive; }
  std::int32_t Retain() override { return 2; }
  std::int32_t Release() override {
    delete this;
    return 0;
  }
  bool Query(x3::InterfaceId, x3::IObject**) override { return false; }
  const char* ClassId() const override { return row; }
  const char* ClassName() const override { return "Made"; }

  inline static int alive = 0;

 private:
  const char* row;
};

constexpr x3::InterfaceId kFirst = 1;
constexpr x3::InterfaceId kShared = 2;
constexpr x3::InterfaceId kUnknown = 3;

template <char kRow>
x3::IObject* Make(x3::InterfaceId) {
  static constexpr char kName[] = {kRow, '\0'};
  return new Made(kName);
}

x3::IObject* MakeNothing(x3::InterfaceId) {
  return nullptr;
}

template <x3::InterfaceId... kIds>
bool Has(x3::InterfaceId id) {
  return ((id == kIds) || ...);
}

class ModuleFrameTest : public testing::Test {
 protected:
  ModuleFrameTest() {
    events.clear();
    offeredClassIds.clear();
    tables = {nullptr};
  }
  ~ModuleFrameTest() override { EXPECT_EQ(Made::alive, 0); }

  bool Init(os::ModuleHandle given) { return frame.Init(&tables, given); }

  std::string Create(const char* classId, x3::InterfaceId id) {
    Made untouched("untouched");
    x3::IObject* object = &untouched;
    const bool made = frame.Create(classId, id, &object);
    EXPECT_EQ(made, object != nullptr);
    if (object == nullptr) return "nothing";
    std::string row = object->ClassId();
    object->Release();
    return row;
  }

  x3::ModuleFrame frame{&MadeUpClasses, &Factory};
  const os::ModuleHandle manager = ModuleOf(reinterpret_cast<const void*>(&Factory));
};

TEST_F(ModuleFrameTest, OnlyTheFirstInitAndTheFreeThatBalancesItReachTheManager) {
  EXPECT_TRUE(Init(manager));
  EXPECT_TRUE(Init(nullptr));
  EXPECT_FALSE(frame.Free());
  EXPECT_THAT(events, ElementsAre("register"));
  EXPECT_TRUE(frame.Free());
  EXPECT_THAT(events, ElementsAre("register", "unregister"));

  EXPECT_FALSE(frame.Free()) << "one too many";
  EXPECT_TRUE(Init(nullptr)) << "makes up for it";
  EXPECT_EQ(events.size(), 2);
  EXPECT_TRUE(Init(nullptr)) << "the manager is still known";
  EXPECT_TRUE(frame.Free());
  EXPECT_THAT(events, ElementsAre("register", "unregister", "register", "unregister"));
}

TEST_F(ModuleFrameTest, WorksWithAManagerThatIsItselfOrOffersNothing) {
  const void* const inUtilityLibrary = reinterpret_cast<const void*>(&DataManager::Instance);
  for (const os::ModuleHandle given : {os::ModuleHandle(&tables), ModuleOf(inUtilityLibrary)}) {
    x3::ModuleFrame alone(&MadeUpClasses, &Factory);
    EXPECT_TRUE(alone.Init(&tables, given));
    EXPECT_TRUE(alone.Free());
  }
  EXPECT_THAT(events, ElementsAre());
}

TEST_F(ModuleFrameTest, TheManagerIsOfferedTheIdsOfAllTablesUpToItsLimit) {
  const std::vector<std::vector<std::size_t>> tableSizes = {{},      {0},     {2, 0, 1},
                                                            {64, 1}, {63, 2}, {70}};
  for (const auto& sizes : tableSizes) {
    SCOPED_TRACE(testing::PrintToString(sizes));
    std::vector<std::string> ids(100);
    for (std::size_t i = 0; i < ids.size(); ++i) ids[i] = "class" + std::to_string(i);
    std::vector<std::vector<x3::ClassEntry>> rows;
    std::size_t used = 0;
    for (const std::size_t size : sizes) {
      auto& table = rows.emplace_back(size + 1);  // the last row stays empty
      for (std::size_t i = 0; i < size; ++i)
        table[i] = {x3::kOrdinaryType, "", ids[used++].c_str(), &MakeNothing, &Has<>};
    }
    tables.clear();
    for (const auto& table : rows) tables.push_back(table.data());
    tables.push_back(nullptr);

    x3::ModuleFrame offering(&MadeUpClasses, &Factory);
    offering.Init(&tables, manager);
    offering.Free();
    ids.resize(std::min<std::size_t>(used, 64));
    EXPECT_THAT(offeredClassIds, ElementsAreArray(ids));
  }
}

TEST_F(ModuleFrameTest, CreatesByClassIdOrByTheFirstClassThatAnswers) {
  const x3::ClassEntry first[] = {{x3::kOrdinaryType, "", "orv.first", &Make<'1'>, &Has<kFirst>},
                                  {}};
  const x3::ClassEntry second[] = {{x3::kOrdinaryType, "", "orv.second", &Make<'2'>, &Has<kShared>},
                                   {x3::kOrdinaryType, "", "orv.third", &Make<'3'>, &Has<kShared>},
                                   {x3::kOrdinaryType, "", "orv.none", &MakeNothing, &Has<>},
                                   {x3::kOrdinaryType, "", "orv.none", &Make<'5'>, &Has<>},
                                   {}};
  tables = {first, second, nullptr};

  EXPECT_EQ(Create("orv.third", kShared), "3");
  EXPECT_EQ(Create("", kFirst), "1");
  EXPECT_EQ(Create("", kShared), "2");
  EXPECT_EQ(Create("", kUnknown), "nothing");
  EXPECT_EQ(Create("orv.Third", kShared), "nothing");
  EXPECT_EQ(Create("orv.thir", kShared), "nothing");
  EXPECT_EQ(Create("orv.none", kShared), "nothing") << "the first row of an id decides";
}

TEST_F(ModuleFrameTest, SingletonsGetOneSlotEachAndGoWithTheLastFree) {
  const x3::ClassEntry rows[] = {
      {9, "", "orv.a", &Make<'a'>, &Has<>}, {10, "", "orv.b", &Make<'b'>, &Has<>}, {}};
  const x3::ClassEntry more[] = {{11, "", "orv.c", &Make<'c'>, &Has<>}, {}};
  tables = {rows, more, nullptr};

  x3::SingletonStore& store = frame.singletons;
  Init(manager);
  ASSERT_EQ(store.capacity, 2);
  ASSERT_EQ(store.firstIndex, 2);
  store.objects[store.firstIndex = 1] = new Made("singleton");
  Init(manager);
  frame.Free();
  EXPECT_EQ(Made::alive, 1);
  frame.Free();
  EXPECT_EQ(Made::alive, 0);
  EXPECT_EQ(store.objects, nullptr);
  EXPECT_EQ(store.firstIndex, 0);

  tables = {more, nullptr};
  Init(manager);
  EXPECT_EQ(store.capacity, 2) << "never shrinks";
  EXPECT_EQ(store.firstIndex, 2);
  frame.Free();
}

TEST_F(ModuleFrameTest, WithoutSingletonsNothingIsKept) {
  Init(manager);
  EXPECT_EQ(frame.singletons.objects, nullptr);
  frame.Free();
}

}  // namespace
