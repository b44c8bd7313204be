#pragma once

#include <filesystem>
#include <string>

/// Goes through a file of commands of the driven manager (docs/drive.md) and of what must show
/// behind them. Returns where it did not, with the line; empty when all is as told.
///
///   machine FILE.json       first; of tests/machine/files
///   past SECONDS...         runs of so long before the journey, which begins at noon; so many
///                           categories passed as it is the first, second...
///   repeat N ... end        the lines between, N times
///   COMMAND                 is carried out
///   refused COMMAND         is not
///     NAME[.PROPERTY]: ...  what the controls of that name show that are in sight:
///     ShownWindow::Tell event: ID [PAYLOAD]   the next one sent; "none" when nothing was windows:
///     ...          the open modal windows stored: CELLS         at the end: the next row of the
///     store, the newest first, without dates
///
/// All indented lines in a row tell of one moment, and "| ..." goes on with the line above it.
std::string GoThrough(const std::filesystem::path& file);
