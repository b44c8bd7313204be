// How fast messages go between processes. The program starts itself again as the other process:
// "message_bench --as messages|bytes|clients SOCKET".

#include <benchmark/benchmark.h>

#include <array>
#include <asio/buffer.hpp>
#include <asio/io_context.hpp>
#include <asio/local/stream_protocol.hpp>
#include <asio/read.hpp>
#include <asio/write.hpp>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <random>
#include <semaphore>
#include <string>
#include <string_view>
#include <thread>

#include "bench/message_partner.h"
#include "bench/resident_memory.h"
#include "platform/message/broker.h"
#include "platform/message/frame.h"
#include "platform/message/ipc_message_client.h"
#include "platform/os/child_process.h"
#include "platform/os/paths.h"

namespace {

namespace fs = std::filesystem;
using Protocol = asio::local::stream_protocol;

constexpr int kClients = 100;
constexpr int kTrips = 100;

// A request to repair three categories.
constexpr std::array<std::uint8_t, 20> kBody = {1, 0, 0, 0, 3, 0, 0, 0, 0, 0,
                                                0, 0, 5, 0, 0, 0, 6, 0, 0, 0};

tagIPC_MESSAGE_ITEM Request(std::uint32_t target) {
  tagIPC_MESSAGE_ITEM item;
  item.target = target;
  item.messageId = 0x390021;
  item.dataLength = kBody.size();
  item.data = kBody.data();
  return item;
}

fs::path NewSocket() {
  return fs::temp_directory_path() / ("bench-" + std::to_string(std::random_device()()) + ".sock");
}

os::ChildProcess StartPartner(const char* role, const fs::path& socket) {
  return os::ChildProcess(
      {(os::ExecutableFolder() / "message_bench").string(), "--as", role, socket.string()});
}

// The measuring end: counts what comes back.
class Caller {
 public:
  Caller() : client(0x300000, false) {
    client.RegisterMessageCallbackAll([this](const tagIPC_MESSAGE_ITEM& item) {
      if (expected.fetch_sub(1) == 1) done.release();
      if (trips > 0 && --trips > 0) client.PostIPCMessage(Request(item.source));
    });
  }

  // So many round trips, each begun by the answer to the one before.
  void RoundTrips(std::uint32_t target, int count) {
    trips = count;
    RoundTrip(target, count);
  }

  // Posts one message and waits for `answers` to it.
  void RoundTrip(std::uint32_t target, int answers) {
    expected = answers;
    client.PostIPCMessage(Request(target));
    done.acquire();
  }

  // Until everybody answers.
  void WaitForPartners(std::uint32_t target, int answers) {
    do {
      expected = answers;
      client.PostIPCMessage(Request(target));
    } while (!done.try_acquire_for(std::chrono::milliseconds(200)));
    std::this_thread::sleep_for(std::chrono::milliseconds(300));  // late answers
    while (done.try_acquire()) {
    }
  }

 private:
  CIPCMessageClient client;
  std::atomic<int> expected = 0;
  std::atomic<int> trips = 0;
  std::counting_semaphore<1000> done{0};
};

void PlainSocketRoundTrip(benchmark::State& state) {
  const fs::path path = NewSocket();
  asio::io_context context;
  Protocol::acceptor acceptor(context, path.string());
  const os::ChildProcess partner = StartPartner("bytes", path);
  Protocol::socket socket = acceptor.accept();
  const auto bytes = message::EncodeMessage(Request(0x390000));
  std::vector<std::uint8_t> answer(bytes.size());
  for ([[maybe_unused]] auto _ : state) {
    asio::write(socket, asio::buffer(bytes));
    asio::read(socket, asio::buffer(answer));
  }
  fs::remove(path);
}
BENCHMARK(PlainSocketRoundTrip)->UseRealTime();

void MessageRoundTrip(benchmark::State& state) {
  const fs::path path = NewSocket();
  const message::Broker broker(path);
  const os::ChildProcess partner = StartPartner("messages", path);
  Caller caller;
  caller.WaitForPartners(0x390000, 1);
  while (state.KeepRunningBatch(kTrips)) caller.RoundTrips(0x390000, kTrips);
}
BENCHMARK(MessageRoundTrip)->UseRealTime();

// One message to the group of all, one answer of each.
void HundredClients(benchmark::State& state) {
  const fs::path path = NewSocket();
  const message::Broker broker(path);
  const os::ChildProcess partner = StartPartner("clients", path);
  Caller caller;
  caller.WaitForPartners(0x4000, kClients);
  for ([[maybe_unused]] auto _ : state) caller.RoundTrip(0x4000, kClients);
  state.SetItemsProcessed(state.iterations() * 2 * kClients);
}
BENCHMARK(HundredClients)->UseRealTime();

void MemoryAfterMessages(benchmark::State& state) {
  const fs::path path = NewSocket();
  const message::Broker broker(path);
  const os::ChildProcess partner = StartPartner("messages", path);
  Caller caller;
  caller.WaitForPartners(0x390000, 1);
  for (int i = 0; i < 10000; ++i) caller.RoundTrip(0x390000, 1);
  const double before = static_cast<double>(ResidentMemory());
  for ([[maybe_unused]] auto _ : state) caller.RoundTrip(0x390000, 1);
  state.counters["KiB before"] = before / 1024;
  state.counters["KiB after"] = static_cast<double>(ResidentMemory()) / 1024;
}
BENCHMARK(MemoryAfterMessages)->Iterations(100000)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
  if (argc == 4 && std::string_view(argv[1]) == "--as") {
    const std::string_view role = argv[2];
    if (role == "messages") EchoMessages(argv[3]);
    if (role == "bytes") EchoBytes(argv[3]);
    if (role == "clients") ServeClients(argv[3], kClients);
    return 0;
  }
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
