#include "platform/util/process_store.h"

#include <mutex>
#include <utility>

#include "common/log.h"
#include "platform/os/paths.h"

namespace util {
namespace {

struct News {
  std::mutex mutex;
  std::string readFault;  // of the last read
  std::string untold;     // of a read since it was last taken
  std::string writeFault;
  std::vector<std::string> notices;
};

News& ProcessNews() {
  static News& news = *new News;
  return news;
}

log4cxx::LoggerPtr StoreLogger() {
  return log4cxx::Logger::getLogger("orv.util");
}

void AddNotice(const std::string& notice) {
  COMMON_LOG_WARN(StoreLogger(), "data store: " + notice);
  const std::lock_guard lock(ProcessNews().mutex);
  ProcessNews().notices.push_back(notice);
}

Store& ProcessStore() {
  static Store& store = *new Store(os::DataFolder(), AddNotice);
  return store;
}

// What went wrong, or nothing.
std::string FaultOf(const std::function<void(Store&)>& use) {
  try {
    use(ProcessStore());
    return {};
  } catch (...) {
    return common::DescribeCurrentException();
  }
}

void LogFault(const std::string& fault) {
  COMMON_LOG_ERROR(StoreLogger(), "data store: " + fault);
}

}  // namespace

bool ReadStore(const std::function<void(Store&)>& use) {
  const std::string fault = FaultOf(use);
  News& news = ProcessNews();
  const std::lock_guard lock(news.mutex);
  const bool isNew = std::exchange(news.readFault, fault) != fault;
  if (fault.empty()) return true;
  if (isNew) LogFault(fault);
  news.untold = fault;
  return false;
}

bool WriteStore(const std::function<void(Store&)>& use) {
  const std::string fault = FaultOf(use);
  News& news = ProcessNews();
  const std::lock_guard lock(news.mutex);
  news.writeFault = fault;
  if (!fault.empty()) LogFault(fault);
  return fault.empty();
}

std::string StoreWriteFault() {
  const std::lock_guard lock(ProcessNews().mutex);
  return ProcessNews().writeFault;
}

std::string TakeStoreReadFault() {
  const std::lock_guard lock(ProcessNews().mutex);
  return std::exchange(ProcessNews().untold, {});
}

std::vector<std::string> StoreNotices() {
  const std::lock_guard lock(ProcessNews().mutex);
  return ProcessNews().notices;
}

}  // namespace util
