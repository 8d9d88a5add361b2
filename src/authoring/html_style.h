#pragma once

namespace zev {

/// The style sheet of the preview page: light and dark, narrow and wide windows, and paper.
[[nodiscard]] const char* previewStyle();

}  // namespace zev
