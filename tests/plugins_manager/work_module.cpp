// A plugin whose object starts every kind of work that the platform keeps for a module.

#include <exception>
#include <memory>
#include <utility>

#include "common/log.h"
#include "platform/concurrency/task.h"
#include "platform/duilib/queue/ui_main_queue.h"
#include "platform/message/ipc_message_client.h"
#include "sysdiagnose/plugin/frame/class_entry.h"
#include "sysdiagnose/plugin/frame/normal_object.h"
#include "tests/plugins_manager/work.h"

namespace {

// Its destructor is code of this module.
class Mark {
 public:
  explicit Mark(Signals& counted) : signals(counted) { ++signals.made; }
  Mark(const Mark&) = delete;
  Mark& operator=(const Mark&) = delete;
  ~Mark() { ++signals.destroyed; }

  void Block() const {
    signals.started.send(0);
    signals.gate.receive();
    COMMON_LOG_INFO(log4cxx::Logger::getLogger("orv.test"), "goes on");
  }

 private:
  Signals& signals;
};

using SharedMark = std::shared_ptr<const Mark>;

SharedMark MakeMark(Signals& signals) {
  return std::make_shared<const Mark>(signals);
}

class Failure final : public std::exception {
 public:
  explicit Failure(SharedMark held) : mark(std::move(held)) {}
  const char* what() const noexcept override { return "is logged"; }

 private:
  SharedMark mark;
};

// Pages own their timers like this.
class Ticking {
 public:
  Ticking(Signals& signals, bool repeating)
      : mark(MakeMark(signals)),
        stops(repeating),
        target([this](int) { Step(); }),
        timer(1, 0, &target, repeating) {
    timer.start();
  }

 private:
  void Step() {
    if (std::exchange(blocked, true)) return;
    mark->Block();
    if (stops) timer.stop();
  }

  SharedMark mark;
  bool stops;
  bool blocked = false;
  concurrency::call<int> target;
  concurrency::timer<int> timer;
};

class StoppingTick : public concurrency::ITarget<int> {
 public:
  explicit StoppingTick(Signals& signals) : mark(MakeMark(signals)), timer(1, 0, this, true) {
    timer.start();
  }

  void send(int) override {
    timer.stop();
    mark->Block();
  }

 private:
  SharedMark mark;
  concurrency::timer<int> timer;
};

// Destroyed by the detach.
std::unique_ptr<Ticking> repeatingTimer;
std::unique_ptr<Ticking> oneShotTimer;
std::unique_ptr<StoppingTick> stoppingTick;
std::unique_ptr<CIPCMessageClient> client;

void StartPlainTasks(Signals& signals) {
  for (int i = 0; i < 3; ++i) concurrency::create_task([mark = MakeMark(signals)] {});
  concurrency::create_task([mark = MakeMark(signals)] { throw Failure(mark); });
}

void StartPacedTask(Signals& signals) {
  concurrency::create_task([mark = MakeMark(signals)] {
    mark->Block();
    throw Failure(mark);
  }).then([mark = MakeMark(signals)](const concurrency::task<void>& paced) { paced.get(); });
}

void StartDetached(Signals& signals) {
  concurrency::run_detached([mark = MakeMark(signals)] {
    mark->Block();
    throw Failure(mark);
  });
}

void StartRepeatingTimer(Signals& signals) {
  repeatingTimer = std::make_unique<Ticking>(signals, true);
}

void StartOneShotTimer(Signals& signals) {
  oneShotTimer = std::make_unique<Ticking>(signals, false);
}

void StartStoppingTick(Signals& signals) {
  stoppingTick = std::make_unique<StoppingTick>(signals);
}

void DispatchClosure(Signals& signals) {
  DuiLib::UIMainQueue::dispatch([mark = MakeMark(signals)] {});
}

void RegisterHandler(Signals& signals) {
  client = std::make_unique<CIPCMessageClient>(kWorkMessageModule, false);
  client->RegisterMessageCallback(
      kWorkMessage, [mark = MakeMark(signals)](const tagIPC_MESSAGE_ITEM&) { mark->Block(); });
}

// By WorkKind.
constexpr void (*kStarters[])(Signals&) = {
    &StartPlainTasks,   &StartPacedTask,    &StartDetached,   &StartRepeatingTimer,
    &StartOneShotTimer, &StartStoppingTick, &DispatchClosure, &RegisterHandler};

class Work : public IWork {
 public:
  static bool Answers(x3::InterfaceId id) { return id == x3::IdOf<IWork>(); }

  const char* ClassId() const override { return kWorkClassId; }
  const char* ClassName() const override { return "Work"; }
  void Start(WorkKind kind, Signals& signals) override {
    kStarters[static_cast<std::size_t>(kind)](signals);
  }
};

}  // namespace

x3::ClassMap x3::ClassMapList() {
  static constexpr ClassEntry kClasses[] = {{kOrdinaryType, "NormalObject<Work>", kWorkClassId,
                                             &NormalObject<Work>::Create, &Work::Answers},
                                            {}};
  static constexpr const ClassEntry* kTables[] = {kClasses, nullptr};
  return kTables;
}
