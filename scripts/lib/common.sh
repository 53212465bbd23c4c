# Shared by the scripts: folders, required packages and small helpers. To be sourced.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
build=$root/build

say() { printf '%s\n' "$*" >&2; }
die() { say "$(basename "$0"): $*"; exit 1; }

# Runs a step and prints how long it took: timed NAME COMMAND…
timed() {
    local name=$1 since=$SECONDS code=0
    shift
    "$@" || code=$?
    say "== $name: $((SECONDS - since)) s"
    return "$code"
}

# Builds without output; on failure prints the end of the log: build_quietly NAME PRESET [target…].
build_quietly() {
    local log=$build/$1-build.log
    shift
    "$root/scripts/build" "$@" >"$log" 2>&1 || { tail -n 40 "$log" >&2; die "the build failed"; }
}

# Runs tests of a Windows program and prints their output: run_tests LOG PROGRAM FILTER COUNT. Succeeds if COUNT tests passed.
# A crashed process may return 0 under Wine, so only its output decides.
run_tests() {
    "$root/scripts/wine" "$build/windows/$2.exe" --gtest_filter="$3" >"$1" 2>&1 || true
    cat "$1"
    grep -q "PASSED .* $4 test" "$1" && ! grep -q FAILED "$1"
}

# Everything that the build, the tests and the screens need, by the package names of Debian 12.
packages=(
    ca-certificates cmake ninja-build g++ g++-mingw-w64-x86-64-posix
    clang clang-format clang-tidy libclang-rt-14-dev lld llvm ccache
    googletest unicode-data libmagickcore-6.q16-dev
    wine wine64 fonts-wine xvfb openbox xdotool wmctrl x11-utils imagemagick xclip
    fonts-noto-cjk fonts-ipafont fonts-dejavu-core locales
    edict ripgrep python3 libc-bin git
)

missing_packages() {
    dpkg-query -W -f '${Package} ${db:Status-Status}\n' "${packages[@]}" 2>/dev/null \
        | awk '$2 == "installed" { print $1 }' | sort -u >"${TMPDIR:-/tmp}/pagewick-installed.$$"
    printf '%s\n' "${packages[@]}" | sort -u | comm -23 - "${TMPDIR:-/tmp}/pagewick-installed.$$"
    rm -f "${TMPDIR:-/tmp}/pagewick-installed.$$"
}

has_japanese_locale() { locale -a 2>/dev/null | grep -qiE '^ja_JP\.utf-?8$'; }

# Installs missing packages; quick and silent if nothing is missing.
ensure_setup() {
    if [ -n "$(missing_packages)" ] || ! has_japanese_locale; then
        "$root/scripts/setup"
    fi
}
