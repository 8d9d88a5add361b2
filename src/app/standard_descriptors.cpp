#include "app/standard_descriptors.h"

#include <fcntl.h>
#include <unistd.h>

#include <initializer_list>

namespace zev {

void holdStandardDescriptors() {
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(descriptor, F_GETFD) == -1) static_cast<void>(open("/", O_RDONLY | O_DIRECTORY));
    }
}

}  // namespace zev
