#include "common/file.h"

#include <gtest/gtest.h>

#include "tests/support/temporary_folder.h"

namespace common {
namespace {

TEST(ReadFile, WhatCannotBeReadIsNamed) {
  const test::TemporaryFolder folder;
  for (const auto& file : {folder.Path() / "missing", folder.Path()}) {
    try {
      ReadFile(file, 10);
      FAIL() << file;
    } catch (const std::runtime_error& error) {
      EXPECT_EQ(error.what(), "cannot open file " + file.string());
    }
  }
}

TEST(ReadFile, IsCutOneByteBehindTheLimit) {
  const test::TemporaryFolder folder;
  const auto file = folder.Write("file", std::string(200000, 'x'));
  EXPECT_EQ(ReadFile(file, 100).size(), 101);
  EXPECT_EQ(ReadFile(file, 200000).size(), 200000);
}

}  // namespace
}  // namespace common
