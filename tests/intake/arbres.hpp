// Byte-for-byte comparison of an operation's output folders with a fixture's expected tree.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>

namespace telvoris::test {

// Every file below `attendu` must stand at the same relative path below `obtenu` with the same
// bytes, and each folder of `attendu` must hold no other file below `obtenu`.
::testing::AssertionResult ArbresIdentiques(const std::filesystem::path& attendu, const std::filesystem::path& obtenu);

}  // namespace telvoris::test
