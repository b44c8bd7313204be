#pragma once

#include "manager/headless/answer.h"
#include "platform/duilib/tree/control.h"

namespace manager {

/// Writes a control and all that lies in it as one JSON object, as docs/drive.md describes it.
void WriteTree(Json& json, DuiLib::CControlUI& control);

}  // namespace manager
