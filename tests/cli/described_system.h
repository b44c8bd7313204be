#pragma once

#include <filesystem>
#include <string>
#include <vector>

/// Fills a system root with what can be said there of a machine, and returns what a recording of
/// that machine has to hold.
std::vector<std::string> DescribeSystem(const std::filesystem::path& root);
