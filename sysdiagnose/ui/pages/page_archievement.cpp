#include "sysdiagnose/ui/pages/page_archievement.h"

namespace orv::sysdiagnose {

PageArchievement::PageArchievement()
    : ContentPage(L"SysdiagnosePageArchievement", L"layout\\sysdiagnose_archievement.xml") {}

}  // namespace orv::sysdiagnose
