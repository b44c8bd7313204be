#include "sysdiagnose/ui/pages/page_detect.h"

namespace orv::sysdiagnose {

PageDetect::PageDetect()
    : ContentPage(L"SysdiagnosePageDetect", L"layout\\sysdiagnose_detect.xml") {}

}  // namespace orv::sysdiagnose
