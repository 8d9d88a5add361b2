#pragma once

namespace zev {

/// The first steps of every command: repairs what its caller may have left, and adopts the locale of the environment.
///
/// It opens a directory on each standard descriptor that is closed. Otherwise a file of the run would get that number
/// and be taken for the console. A directory behaves like a closed descriptor: it can be neither read nor written, and
/// it is not a character device. It also restores the default handling of SIGCHLD. With a caller's SIG_IGN, the exit
/// status of a print command would be lost.
void startProcess();

}  // namespace zev
