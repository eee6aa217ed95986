// SPDX-License-Identifier: MIT
// Marks what a test package exports.
#pragma once

#define ENTRY_POINT extern "C" __attribute__((visibility("default")))
