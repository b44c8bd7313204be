#include "sysdiagnose/catalogue/hardware_info_source.h"

namespace orv::sysdiagnose {

HardwareInfoSource& HardwareInfoSource::Instance() {
  static HardwareInfoSource source;
  return source;
}

}  // namespace orv::sysdiagnose
