#include "platform/machine/live/linux/wireless_signal.h"

#include <linux/nl80211.h>
#include <netlink/genl/ctrl.h>
#include <netlink/genl/genl.h>
#include <netlink/netlink.h>
#include <sys/socket.h>

#include <array>
#include <memory>

#include "platform/machine/live/linux/forked_call.h"
#include "platform/machine/live/linux/system_file.h"
#include "platform/machine/live/wireless_levels.h"
#include "platform/os/paths.h"

namespace machine {
namespace {

constexpr std::size_t kTableLimit = std::size_t{64} << 10;

struct Level {
  bool isStation = false;  // else an access point, which hears others
  bool isKnown = false;
  int dbm = 0;
};

struct FreeSocket {
  void operator()(nl_sock* socket) const { nl_socket_free(socket); }
};
struct FreeMessage {
  void operator()(nl_msg* message) const { nlmsg_free(message); }
};

std::array<nlattr*, NL80211_ATTR_MAX + 1> AttributesOf(nl_msg* message) {
  std::array<nlattr*, NL80211_ATTR_MAX + 1> attributes{};
  auto* const header = static_cast<genlmsghdr*>(nlmsg_data(nlmsg_hdr(message)));
  nla_parse(attributes.data(), NL80211_ATTR_MAX, genlmsg_attrdata(header, 0),
            genlmsg_attrlen(header, 0), nullptr);
  return attributes;
}

int TakeInterface(nl_msg* message, void* argument) {
  const auto attributes = AttributesOf(message);
  const nlattr* const type = attributes[NL80211_ATTR_IFTYPE];
  static_cast<Level*>(argument)->isStation =
      type != nullptr && nla_get_u32(type) == NL80211_IFTYPE_STATION;
  return NL_OK;
}

int TakeStation(nl_msg* message, void* argument) {
  auto* const level = static_cast<Level*>(argument);
  const auto attributes = AttributesOf(message);
  std::array<nlattr*, NL80211_STA_INFO_MAX + 1> station{};
  if (attributes[NL80211_ATTR_STA_INFO] == nullptr) return NL_OK;
  nla_parse_nested(station.data(), NL80211_STA_INFO_MAX, attributes[NL80211_ATTR_STA_INFO],
                   nullptr);
  if (station[NL80211_STA_INFO_SIGNAL] == nullptr) return NL_OK;
  level->dbm = static_cast<std::int8_t>(nla_get_u8(station[NL80211_STA_INFO_SIGNAL]));
  level->isKnown = true;
  return NL_OK;
}

/// Sends a question about the interface and takes the answers until their end.
bool Ask(nl_sock* socket, int family, std::uint8_t command, int flags, std::uint32_t interface,
         nl_recvmsg_msg_cb_t take, Level& level) {
  const std::unique_ptr<nl_msg, FreeMessage> message(nlmsg_alloc());
  if (!message) return false;
  genlmsg_put(message.get(), NL_AUTO_PORT, NL_AUTO_SEQ, family, 0, flags, command, 0);
  if (nla_put_u32(message.get(), NL80211_ATTR_IFINDEX, interface) < 0) return false;
  nl_socket_modify_cb(socket, NL_CB_VALID, NL_CB_CUSTOM, take, &level);
  if (nl_send_auto(socket, message.get()) < 0) return false;
  return nl_recvmsgs_default(socket) >= 0;
}

/// Runs in a child: the kernel may be stuck with the device.
int AskKernel(std::uint32_t interface, Level& level) {
  const std::unique_ptr<nl_sock, FreeSocket> socket(nl_socket_alloc());
  if (!socket || genl_connect(socket.get()) < 0) return 1;
  const int family = genl_ctrl_resolve(socket.get(), NL80211_GENL_NAME);
  if (family < 0) return 1;
  const bool isTold =
      Ask(socket.get(), family, NL80211_CMD_GET_INTERFACE, 0, interface, TakeInterface, level) &&
      nl_wait_for_ack(socket.get()) >= 0;
  if (!isTold || !level.isStation) return 1;
  return Ask(socket.get(), family, NL80211_CMD_GET_STATION, NLM_F_DUMP, interface, TakeStation,
             level)
             ? 0
             : 1;
}

std::optional<int> AskKernel(const std::string& interface) {
  const auto index = ReadNumber(os::SystemPath("/sys/class/net/" + interface + "/ifindex"));
  if (!index || os::IsSystemRootSet()) return std::nullopt;
  const SharedAnswer<Level> level;
  const auto status =
      RunForked([&] { return AskKernel(static_cast<std::uint32_t>(*index), *level); },
                AfterLimit::Kill, kQuestionLimit);
  if (status != 0 || !level->isKnown) return std::nullopt;
  return level->dbm;
}

}  // namespace

std::optional<int> WirelessSignal(const std::string& interface) {
  if (const std::optional<int> level = AskKernel(interface)) return level;
  const auto levels =
      ParseWirelessLevels(ReadText(os::SystemPath("/proc/net/wireless"), kTableLimit));
  const auto found = levels.find(interface);
  return found == levels.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace machine
