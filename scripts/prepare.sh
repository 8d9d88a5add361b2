# shellcheck shell=bash disable=SC2034
# Sourced by the commands of this folder: prints their help, installs what they need and runs long steps quietly.

case " $* " in
    *' --help '* | *' -h '*)
        # The opening comment of the command.
        sed -n '2,/^[^#]/ { /^# shellcheck/d; s/^# \{0,1\}//p }' "$0"
        exit 0
        ;;
esac

unset CDPATH
# Otherwise bash would replace the LINES and COLUMNS that the caller set for zev.
shopt -u checkwinsize

cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit 1
root=$PWD
mkdir -p build || exit 1

# The name of this machine's processor in the names of releases.
native=$(uname -m)
native=${native/x86_64/x86-64}
native=${native/aarch64/arm64}

fail() {
    printf '%s\n' "$@" >&2
    exit 1
}

# quietly WHAT COMMAND...: runs a command without input, and shows its output only if it fails.
quietly() {
    local what=$1 log=build/last-step.$$.log
    shift
    "$@" >"$log" 2>&1 </dev/null || {
        cat "$log" >&2
        rm -f "$log"
        fail "zev: cannot go on: $what failed."
    }
    rm -f "$log"
}

# run_tests LOG CTEST-OPTION...: runs tests, and shows the output of those that fail and nothing else.
run_tests() {
    local log=$1
    shift
    ctest --output-on-failure --no-tests=error "$@" >"$log" 2>&1 </dev/null || awk '
        # A result reads: 12/104 Test #3: Name ....***Failed 0.1 sec
        /^ *[0-9]+\/[0-9]+ Test +#/ { shown = /\*\*\*/ && !/\*\*\*Skipped/; tests += shown }
        /^ +Start +[0-9]+: / || /tests passed, / { shown = 0 }
        shown
        { all = all $0 "\n" }
        END {
            if (tests == 0) printf "%s", all
            exit 1
        }' "$log" >&2
}

has_header() {
    printf '#include <%s>\n' "$1" | "${CXX:-c++}" -std=c++20 -E -x c++ - >/dev/null 2>&1
}

# has_static LIBRARY: whether a static executable can be linked with the library.
has_static() {
    echo 'int main() {}' | "${CXX:-c++}" -static -x c++ - "-l$1" -o build/probe
}

has_sanitizers() {
    echo 'int main() {}' | "${CXX:-c++}" -fsanitize=address,undefined -x c++ - -o build/probe
}

has_cmake() {
    local version
    version=$(cmake --version 2>/dev/null | sed -n '1s/[^0-9]*//p') &&
        [ "$(printf '3.25\n%s\n' "$version" | sort -V | head -n 1)" = 3.25 ]
}

has_fuzzer() {
    ls "$(clang++ -print-runtime-dir)"/libclang_rt.fuzzer*
}

# Debian's packages for the compiler, and for what the sanitizers need in addition.
case ${CXX:-c++} in
    *clang*) compiler=clang sanitizers=libclang-rt-dev ;;
    *) compiler=g++ sanitizers=g++ ;;
esac

# What is needed, one thing on each line: the test for it | Debian's packages | its name for users of other systems.
zev_needs="
command -v ${CXX:-c++} | $compiler | a C++20 compiler (g++ 12 or clang 14, or newer)
has_cmake | cmake | CMake 3.25 or newer
command -v ninja | ninja-build | Ninja
has_header unicode/ustdio.h | libicu-dev | ICU 70 or newer with its headers"
build_needs=$zev_needs'
has_header CLI/CLI.hpp | libcli11-dev | CLI11
has_header nlohmann/json.hpp | nlohmann-json3-dev | JSON for Modern C++
has_header libexttextcat/fingerprint.h | libexttextcat-dev | libexttextcat with its headers
[ -f /usr/share/libexttextcat/en.lm ] | libexttextcat-data | the language models of libexttextcat
has_header sha2.h | libmd-dev | libmd with its headers'
static_needs='
has_static icui18n | libicu-dev | the static libraries of ICU, of C and of C++
has_static exttextcat-2.0 | libexttextcat-dev | the static library of libexttextcat
has_static md | libmd-dev | the static library of libmd'
test_needs="
has_sanitizers | $sanitizers | the sanitizers of the compiler
has_header gtest/gtest.h | libgtest-dev | GoogleTest
has_header gmock/gmock.h | libgmock-dev | GoogleMock"
git_needs='
command -v git | git | git'

# missing NEEDS: the needs that are not met.
missing() {
    local probe rest
    while IFS='|' read -r probe rest; do
        [ -z "$probe" ] || eval "$probe" >/dev/null 2>&1 || echo "$probe|$rest"
    done <<<"$1"
}

# packages_of NEEDS: Debian's packages for them, each once, in one line.
packages_of() {
    cut -d '|' -f 2 <<<"$1" | tr -s ' ' '\n' | awk 'NF && !seen[$0]++ { printf "%s%s", gap, $0; gap = " " }'
}

# install_needs NEEDS: installs what is missing with apt-get, or lists what is missing and fails.
install_needs() {
    local lacking packages as_root=()
    lacking=$(missing "$1")
    [ -n "$lacking" ] || return 0
    packages=$(packages_of "$lacking")
    [ "$(id -u)" = 0 ] || as_root=(sudo)
    if command -v apt-get >/dev/null && { [ ${#as_root[@]} = 0 ] || command -v sudo >/dev/null; }; then
        echo "zev: installing these packages with ${as_root[*]:+sudo }apt-get: $packages" >&2
        quietly 'updating the package lists' "${as_root[@]}" apt-get update -q
        # shellcheck disable=SC2086 # one word for each package
        quietly "installing $packages" "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get \
            -o DPkg::Lock::Timeout=300 install -qy --no-install-recommends $packages
        lacking=$(missing "$1")
        [ -n "$lacking" ] || return 0
    fi
    fail 'zev: cannot go on without the following. Please install it and start again:' \
        "$(cut -d '|' -f 3 <<<"$lacking" | sed 's/^/ /')" \
        "Debian's packages for it: $(packages_of "$lacking")"
}

# build PRESET [OPTION OF CMAKE]...: configures and builds.
build() {
    quietly "configuring the $1 build" cmake --preset "$@"
    quietly "the $1 build" cmake --build --preset "$1"
}
