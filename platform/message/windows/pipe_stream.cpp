#include "platform/message/windows/pipe_stream.h"

#include <algorithm>
#include <asio/buffer.hpp>
#include <asio/post.hpp>
#include <utility>

#include "platform/message/windows/last_error.h"
#include "platform/message/windows/pipe_client.h"
#include "platform/os/windows/handle.h"

namespace message {

// The completion port counts a thread that still works on what it took from it.
const int kContextThreads = 2;

PipeStream::PipeStream(asio::windows::stream_handle connected) : pipe(std::move(connected)) {}

void PipeStream::AsyncRead(std::span<std::uint8_t> buffer, OnRead handler) {
  if (shut) {
    if (!unread) unread = Available();
    buffer = buffer.first(std::min(buffer.size(), *unread));
    *unread -= buffer.size();
  }
  if (!buffer.empty())
    return pipe.async_read_some(asio::buffer(buffer.data(), buffer.size()), std::move(handler));
  asio::post(pipe.get_executor(),
             [handler = std::move(handler)] { handler(asio::error::operation_aborted, 0); });
}

// A pipe has no way to take only what fits.
std::size_t PipeStream::TryWrite(std::span<const std::uint8_t> /*bytes*/) {
  return 0;
}

// One operation of the system, which takes all or fails.
void PipeStream::AsyncWrite(std::span<const std::uint8_t> bytes, OnWritten handler) {
  pipe.async_write_some(asio::buffer(bytes.data(), bytes.size()),
                        [handler = std::move(handler)](const asio::error_code& error, std::size_t) {
                          handler(error);
                        });
}

// A read under way waits for bytes, so there are none to be read.
void PipeStream::Shutdown() {
  shut = true;
  asio::error_code ignored;
  pipe.cancel(ignored);
}

void PipeStream::Close() {
  asio::error_code ignored;
  pipe.close(ignored);
}

std::size_t PipeStream::Available() {
  DWORD bytes = 0;
  return PeekNamedPipe(pipe.native_handle(), nullptr, 0, nullptr, &bytes, nullptr) != 0 ? bytes : 0;
}

std::unique_ptr<LocalStream> ConnectLocally(asio::io_context& context,
                                            const std::filesystem::path& address,
                                            std::string& whyNot) {
  os::Handle pipe = OpenPipe(address);
  asio::error_code error = pipe ? asio::error_code() : LastError();
  if (pipe && !IsServedByUser(pipe.Get())) {
    whyNot = "it belongs to another user";
    return nullptr;
  }
  asio::windows::stream_handle connected(context);
  if (!error) connected.assign(pipe.Get(), error);
  if (error) {
    whyNot = error.message();
    return nullptr;
  }
  pipe.Release();
  return std::make_unique<PipeStream>(std::move(connected));
}

}  // namespace message
