// SPDX-License-Identifier: MIT
// Marks what the shared platform library offers across its border. Everything else of the tree is hidden, so host and
// package see one copy of the globals and of the type information that exceptions and interface casts need.
#pragma once

#define VIRELLE_PLATFORM __attribute__((visibility("default")))
