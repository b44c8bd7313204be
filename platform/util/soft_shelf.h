#pragma once

#include <string>

#include "platform/os/export.h"

/// Says which plugins this product offers: the keys of the machine's own list where it has one,
/// else those of config/shelf.json (an array of keys) of the installation. Any thread.
class UTIL_API CQVXSoftShelf {
 public:
  static CQVXSoftShelf* GetInstance();

  bool IsSupportPlugin(const std::string& key);
};
