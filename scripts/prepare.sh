# shellcheck shell=bash disable=SC2034
# Sourced by the commands of this folder: installs what the build needs and runs long steps quietly.

unset CDPATH
# Else bash would replace the LINES and COLUMNS that the caller set for zev.
shopt -u checkwinsize

cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1
root=$PWD
mkdir -p build

# This machine's processor, by the name that releases have for it.
native=$(uname -m)
native=${native/x86_64/x86-64}
native=${native/aarch64/arm64}

fail() {
    printf '%s\n' "$@" >&2
    exit 1
}

# quietly WHAT COMMAND...: runs a command without input, and shows its output only when it fails.
quietly() {
    local what=$1 log=build/last-step.log
    shift
    "$@" >"$log" 2>&1 </dev/null || {
        cat "$log" >&2
        fail "zev: cannot go on: $what failed."
    }
}

has_header() {
    printf '#include <%s>\n' "$1" | c++ -std=c++20 -E -x c++ - >/dev/null 2>&1
}

has_cmake() {
    local version
    version=$(cmake --version 2>/dev/null | sed -n '1s/[^0-9]*//p') &&
        [ "$(printf '3.25\n%s\n' "$version" | sort -V | head -n 1)" = 3.25 ]
}

has_fuzzer() {
    ls "$(clang++ -print-runtime-dir)"/libclang_rt.fuzzer*
}

# What the build needs, a line each: the test for it | Debian's package | its name for people on other systems.
build_needs='
command -v c++ | g++ | a C++20 compiler (g++ 12 or clang 14, or newer)
has_cmake | cmake | CMake 3.25 or newer
command -v ninja | ninja-build | Ninja
has_header CLI/CLI.hpp | libcli11-dev | CLI11
has_header sha2.h | libmd-dev | libmd with its static library
has_header nlohmann/json.hpp | nlohmann-json3-dev | JSON for Modern C++
has_header libexttextcat/fingerprint.h | libexttextcat-dev | libexttextcat with its static library
[ -f /usr/share/libexttextcat/en.lm ] | libexttextcat-data | the language models of libexttextcat
has_header unicode/ustdio.h | libicu-dev | ICU 70 or newer with its headers and static libraries'
test_needs='
has_header gtest/gtest.h | libgtest-dev | GoogleTest
has_header gmock/gmock.h | libgmock-dev | GoogleMock
command -v busybox | busybox | BusyBox, whose shell and utilities the companions are tried with'

# missing NEEDS FIELD: that field of the needs that are not there.
missing() {
    local probe package name
    while IFS='|' read -r probe package name; do
        [ -n "$probe" ] && ! eval "$probe" >/dev/null 2>&1 && case $2 in
            package) printf '%s\n' "${package// /}" ;;
            name) printf '  %s\n' "${name# }" ;;
        esac
    done <<<"$1"
}

install_needs() {
    local packages as_root=()
    mapfile -t packages < <(missing "$1" package)
    [ ${#packages[@]} -gt 0 ] || return 0
    command -v apt-get >/dev/null ||
        fail 'zev: cannot go on without these; please install them and start again:' "$(missing "$1" name)"
    [ "$(id -u)" = 0 ] || as_root=(sudo)
    quietly 'updating the package lists' "${as_root[@]}" apt-get update -q
    quietly "installing ${packages[*]}" "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -qy --no-install-recommends "${packages[@]}"
    [ -z "$(missing "$1" name)" ] || fail 'zev: cannot go on; still missing:' "$(missing "$1" name)"
}

# build PRESET
build() {
    quietly "configuring the $1 build" cmake --preset "$1"
    quietly "the $1 build" cmake --build --preset "$1"
}
