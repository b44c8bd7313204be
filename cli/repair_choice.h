#pragma once

#include <optional>

#include "cli/arguments.h"
#include "sysdiagnose/engine/run_model.h"

namespace cli {

/// The offered repairs that the user wants: all with --yes; asked for one by one on a terminal;
/// none otherwise, since nobody can agree. Nothing when an interrupt came instead of an answer.
std::optional<orv::sysdiagnose::RepairMap> ChooseRepairs(
    const Arguments& arguments, const orv::sysdiagnose::RepairMap& offered);

}  // namespace cli
