#include <asio/post.hpp>
#include <asio/windows/overlapped_ptr.hpp>
#include <asio/windows/stream_handle.hpp>
#include <chrono>
#include <set>
#include <stdexcept>
#include <utility>

#include "common/path_text.h"
#include "platform/message/broker.h"
#include "platform/message/local_listener.h"
#include "platform/message/windows/last_error.h"
#include "platform/message/windows/pipe_client.h"
#include "platform/message/windows/pipe_stream.h"
#include "platform/message/windows/user.h"
#include "platform/os/clock.h"

namespace message {
namespace {

using Pipe = asio::windows::stream_handle;

constexpr DWORD kBufferBytes = 1 << 16;
constexpr int kPlaces = 4;
constexpr std::chrono::milliseconds kPause(20);
constexpr int kTries = 100;

// Each process that connects takes one instance of the pipe.
class PipeListener final : public LocalListener {
 public:
  PipeListener(asio::io_context& served, const std::filesystem::path& path)
      : context(served), socket(common::PathText(path)), name(LocalAddress(path)), first(Claim()) {}

  int Places() const override { return kPlaces; }

  void AsyncAccept(OnAccepted handler) override {
    const auto pipe = std::make_shared<Pipe>(context);
    if (const std::error_code error = OpenInstance(*pipe))
      return asio::post(context,
                        [handler = std::move(handler), error] { handler(error, nullptr, 0); });
    waiting.insert(pipe);
    asio::windows::overlapped_ptr connected(
        context,
        [this, pipe, handler = std::move(handler)](const asio::error_code& error, std::size_t) {
          waiting.erase(pipe);
          if (error)
            handler(error, nullptr, 0);
          else
            Take(std::move(*pipe), handler);
        });
    Connect(*pipe, connected);
  }

  void Close() override {
    for (const auto& pipe : waiting) {
      asio::error_code ignored;
      pipe->close(ignored);
    }
  }

 private:
  // A pipe that is there but takes nobody stays so for a moment only: its broker starts, or the
  // clients of a dead one still hold their ends.
  os::Handle Claim() {
    for (int left = kTries; left > 0; --left) {
      if (IsFree()) {
        os::Handle instance = Create(FILE_FLAG_FIRST_PIPE_INSTANCE);
        if (instance) return instance;
        const std::error_code error = LastError();
        if (error.value() != ERROR_ACCESS_DENIED && error.value() != ERROR_PIPE_BUSY)
          throw NobodyCanServe(error.message());
      }
      os::CurrentClock().Sleep(kPause);
    }
    throw NobodyCanServe("a program that does not answer holds the name");
  }

  bool IsFree() const {
    const os::Handle other = OpenPipe(name);
    const DWORD error = GetLastError();
    if (other && IsServedByUser(other.Get()))
      throw BrokerRuns(socket + ": another broker serves there");
    if (other || error == ERROR_ACCESS_DENIED)
      throw NobodyCanServe("a program of another user holds the name");
    return error != ERROR_PIPE_BUSY;
  }

  std::runtime_error NobodyCanServe(const std::string& reason) const {
    return std::runtime_error(socket + ": no broker can serve there: " + reason);
  }

  os::Handle Create(DWORD flags) {
    return os::Handle(CreateNamedPipeW(
        name.c_str(), PIPE_ACCESS_DUPLEX | FILE_FLAG_OVERLAPPED | flags,
        PIPE_TYPE_BYTE | PIPE_READMODE_BYTE | PIPE_WAIT | PIPE_REJECT_REMOTE_CLIENTS,
        PIPE_UNLIMITED_INSTANCES, kBufferBytes, kBufferBytes, 0, security.Get()));
  }

  std::error_code OpenInstance(Pipe& pipe) {
    os::Handle instance = first ? std::move(first) : Create(0);
    if (!instance) return LastError();
    std::error_code error;
    pipe.assign(instance.Get(), error);
    if (!error) instance.Release();
    return error;
  }

  // A client that has come and gone already may have left something to read.
  static void Connect(Pipe& pipe, asio::windows::overlapped_ptr& connected) {
    const bool done = ConnectNamedPipe(pipe.native_handle(), connected.get()) != 0;
    const std::error_code error = LastError();
    if (done || error.value() == ERROR_IO_PENDING)
      connected.release();
    else if (error.value() == ERROR_PIPE_CONNECTED || error.value() == ERROR_NO_DATA)
      connected.complete({}, 0);
    else
      connected.complete(error, 0);
  }

  // The access list has turned other users away; a process that cannot be asked any more has
  // passed it.
  static void Take(Pipe pipe, const OnAccepted& handler) {
    ULONG process = 0;
    GetNamedPipeClientProcessId(pipe.native_handle(), &process);
    if (!IsProcessOfUser(process).value_or(true)) return handler({}, nullptr, 0);
    handler({}, std::make_unique<PipeStream>(std::move(pipe)), static_cast<int>(process));
  }

  asio::io_context& context;
  const std::string socket;
  const std::filesystem::path name;
  OnlyForUser security;
  os::Handle first;  // until somebody waits with it
  std::set<std::shared_ptr<Pipe>> waiting;
};

}  // namespace

std::unique_ptr<LocalListener> ListenLocally(asio::io_context& context,
                                             const std::filesystem::path& socket) {
  return std::make_unique<PipeListener>(context, socket);
}

}  // namespace message
