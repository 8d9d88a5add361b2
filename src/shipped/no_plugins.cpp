// Linked into static executables only. ICU refers to `dlopen` in a function for plug-ins, which the usual builds of ICU
// never call. In a static executable, `dlopen` would need the C library of the build on the system, and the linker
// warns of that. This replacement opens nothing.
extern "C" void* openNoPlugin(const char*, int) noexcept asm("__wrap_dlopen");

void* openNoPlugin(const char*, int) noexcept { return nullptr; }
