#include "sysdiagnose/ui/pages/page_scan.h"

namespace orv::sysdiagnose {

PageScan::PageScan() : ContentPage(L"SysdiagnosePageScan", L"layout\\sysdiagnose_scan.xml") {}

}  // namespace orv::sysdiagnose
