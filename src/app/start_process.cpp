#include "app/start_process.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <initializer_list>

#include "lang/environment_locale.h"

namespace zev {

void startProcess() {
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(descriptor, F_GETFD) == -1) static_cast<void>(open("/", O_RDONLY | O_DIRECTORY));
    }
    std::signal(SIGCHLD, SIG_DFL);
    adoptEnvironmentLocale();
}

}  // namespace zev
