// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstddef>
#include <cstdint>

/// Puts the fuzzer's bytes into a file that the readers can open, always the same one. \returns its path
QString fuzzFile(const char* name, const std::uint8_t* data, std::size_t size);
