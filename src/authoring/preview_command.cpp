#include "authoring/commands.h"

namespace zev {

int runPreview(const PreviewCommand&) { return authoring_status::cannotWork; }

}  // namespace zev
