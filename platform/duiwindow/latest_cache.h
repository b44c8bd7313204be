#pragma once

#include <cstddef>
#include <list>
#include <map>
#include <utility>

namespace duiwindow {

/// Keeps the values that were asked for last.
template <typename Key, typename Value>
class LatestCache {
 public:
  explicit LatestCache(std::size_t mostValues) : most(mostValues) {}

  /// The value of a key, made if it is not there; good until the next call.
  template <typename Make>
  Value& Get(const Key& key, const Make& make) {
    if (const auto found = places.find(key); found != places.end()) {
      values.splice(values.begin(), values, found->second);
      return values.front().second;
    }
    values.emplace_front(key, make());
    places[key] = values.begin();
    if (values.size() > most) {
      places.erase(values.back().first);
      values.pop_back();
    }
    return values.front().second;
  }

  std::size_t Count() const { return values.size(); }

 private:
  const std::size_t most;
  std::list<std::pair<Key, Value>> values;  // the latest first
  std::map<Key, typename std::list<std::pair<Key, Value>>::iterator> places;
};

}  // namespace duiwindow
