#pragma once

namespace zev {

/// Occupies a closed standard descriptor, so that no file of the run gets its number and is taken for the console. A
/// directory answers like a closed descriptor: it can be neither read nor written, and it is no character device.
void holdStandardDescriptors();

}  // namespace zev
