# Toolchain file for another processor. It uses Debian's cross compiler, and takes everything that is linked from the packages of
# that processor, which are unpacked in ZEV_ROOT. ZEV_PROCESSOR is its name in GNU triplets, such as aarch64.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ZEV_PROCESSOR ZEV_ROOT)

set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR ${ZEV_PROCESSOR})
set(triplet ${ZEV_PROCESSOR}-linux-gnu)
set(CMAKE_CXX_COMPILER ${triplet}-g++)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-${ZEV_PROCESSOR}-static)

set(CMAKE_SYSROOT ${ZEV_ROOT})
set(CMAKE_LIBRARY_ARCHITECTURE ${triplet})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)

# The cross compiler has headers and libraries of its own, for an older C library, and would look there first.
execute_process(COMMAND ${CMAKE_CXX_COMPILER} -dumpversion OUTPUT_VARIABLE release OUTPUT_STRIP_TRAILING_WHITESPACE)
execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=include OUTPUT_VARIABLE builtin
  OUTPUT_STRIP_TRAILING_WHITESPACE)
set(headers ${ZEV_ROOT}/usr/include)
set(CMAKE_CXX_FLAGS_INIT "-nostdinc -isystem ${headers}/c++/${release} -isystem ${headers}/${triplet}/c++/${release} \
-isystem ${builtin} -isystem ${headers}/${triplet} -isystem ${headers}")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-B${ZEV_ROOT}/usr/lib/gcc/${triplet}/${release} -B${ZEV_ROOT}/usr/lib/${triplet} \
-L${ZEV_ROOT}/usr/lib/gcc/${triplet}/${release} -L${ZEV_ROOT}/usr/lib/${triplet}")
