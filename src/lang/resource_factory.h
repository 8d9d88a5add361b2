#pragma once

#include <memory>

#include "lang/resource.h"

namespace zev {

/// A new catalogue for the first catalogue code with which `code` begins. Where there is none: the English one with
/// `useDefault`, else null.
[[nodiscard]] std::unique_ptr<Resource> createResource(const char* code, bool useDefault);

}  // namespace zev
