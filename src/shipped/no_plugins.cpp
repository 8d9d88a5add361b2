// Linked into static executables only. ICU refers to `dlopen` in a function for plug-ins, which the usual builds of ICU
// never call. In a static executable that reference would be the promise that the system has the very C library of the
// build, and the linker warns of it; so it is led here, where nothing can be opened.
extern "C" void* openNoPlugin(const char*, int) noexcept asm("__wrap_dlopen");

void* openNoPlugin(const char*, int) noexcept { return nullptr; }
