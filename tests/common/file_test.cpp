#include "common/file.h"

#include <gtest/gtest.h>

#include "tests/support/temporary_folder.h"

namespace common {
namespace {

TEST(ReadFile, WhatCannotBeReadIsNamed) {
  const TemporaryFolder folder;
  for (const auto& file : {folder.path / "missing", folder.path}) {
    try {
      ReadFile(file, 10);
      FAIL() << file;
    } catch (const std::runtime_error& error) {
      EXPECT_EQ(error.what(), "cannot open file " + file.string());
    }
  }
}

TEST(ReadFile, IsCutOneByteBehindTheLimit) {
  const TemporaryFolder folder;
  const auto file = folder.path / "file";
  WriteText(file, std::string(200000, 'x'));
  EXPECT_EQ(ReadFile(file, 100).size(), 101);
  EXPECT_EQ(ReadFile(file, 200000).size(), 200000);
}

}  // namespace
}  // namespace common
