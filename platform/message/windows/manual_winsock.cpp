#include <asio/detail/winsock_init.hpp>

namespace {

// Asio would start Winsock when the library is attached, under the loader's lock. Only pipes and
// timers are used, which do without it. Comes before the objects of Asio that would.
[[gnu::init_priority(101)]] asio::detail::winsock_init<>::manual manualWinsock;

}  // namespace
