#include "app/run_options.h"

namespace zev {

RunOptions runOptions;

}  // namespace zev
