#include "sysdiagnose/plugin/frame/class_entry.h"
#include "sysdiagnose/plugin/frame/normal_object.h"
#include "sysdiagnose/plugin/plugin_sysdiagnose.h"

namespace x3 {

ClassMap ClassMapList() {
  using orv::sysdiagnose::CPluginSysdiagnose;
  static constexpr ClassEntry kClasses[] = {
      {kOrdinaryType, "NormalObject<orv::sysdiagnose::CPluginSysdiagnose>",
       CPluginSysdiagnose::kClassId, &NormalObject<CPluginSysdiagnose>::Create,
       &CPluginSysdiagnose::Answers},
      {}};
  static constexpr const ClassEntry* kTables[] = {kClasses, nullptr};
  return kTables;
}

}  // namespace x3
