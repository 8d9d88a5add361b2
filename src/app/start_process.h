#pragma once

namespace zev {

/// The first steps of every command: settles what a caller may have left behind, and adopts the environment's locale.
///
/// A closed standard descriptor is occupied, so that no file of the run gets its number and is taken for the console. A
/// directory answers like a closed descriptor: it can be neither read nor written, and it is no character device. And
/// the end of children is heeded, which a caller may have ignored: the answer of a print command would be lost.
void startProcess();

}  // namespace zev
