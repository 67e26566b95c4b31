#pragma once

/// The turns of the recorded match that are kept in full, by session: one example of each chain of
/// actions, so that a change shows as text and not only as another hash.

#include <span>

#include "tests/record/Record.h"

[[nodiscard]] std::span<const Excerpt> ExcerptsOf(int number, bool left);
