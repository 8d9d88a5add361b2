#pragma once

#include <memory>

#include "lang/resource.h"

namespace zev {

/// A new catalogue for the longest catalogue code with which `code` begins. If there is none, the result is the English
/// catalogue with `useDefault`, and null without.
[[nodiscard]] std::unique_ptr<Resource> createResource(const char* code, bool useDefault);

}  // namespace zev
