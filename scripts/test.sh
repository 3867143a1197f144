#!/usr/bin/env bash
# Builds foedit and runs every test. With CI=true the build treats warnings as
# errors, and a second build runs the tests again under AddressSanitizer and
# UndefinedBehaviorSanitizer, and a third build with clang compiles everything (the
# libFuzzer targets included) with warnings as errors, so both compilers stay clean.
# Build folders: build/release, build/sanitize and build/clang.
#
#   FOEDIT_JOBS    parallel build and test jobs (default: number of cores)
#   FOEDIT_SLOW    set to 1 to run the suites labelled "slow" in full under the
#                  sanitizer too; by default the sanitizer build leaves them out
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
jobs=${FOEDIT_JOBS:-$(nproc)}
ci=${CI:-false}

"$root/scripts/bootstrap.sh"

build_and_test() { # <folder> <ctest arguments...> -- <cmake options...>
    local folder=$1; shift
    local ctest_args=()
    while [[ $# -gt 0 && $1 != -- ]]; do ctest_args+=("$1"); shift; done
    shift
    cmake -S "$root" -B "$root/build/$folder" -G Ninja "$@" >/dev/null
    cmake --build "$root/build/$folder" -j "$jobs"
    ctest --test-dir "$root/build/$folder" -j "$jobs" --output-on-failure "${ctest_args[@]}"
}

release_options=(-DCMAKE_BUILD_TYPE=RelWithDebInfo)
[[ $ci == true ]] && release_options+=(-DFOEDIT_WERROR=ON)
build_and_test release -- "${release_options[@]}"

if [[ $ci == true ]]; then
    export ASAN_OPTIONS=halt_on_error=1:abort_on_error=1:detect_leaks=1:strict_string_checks=1
    export UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1
    # The seeded editing sessions (tests/robustness) play shorter sessions under the
    # sanitizers, to stay within a few minutes.
    export FOEDIT_SESSION_STEPS=${FOEDIT_SESSION_STEPS:-60} FOEDIT_SESSION_SEEDS=${FOEDIT_SESSION_SEEDS:-2}
    export FOEDIT_SESSION_SHRINK_REPLAYS=${FOEDIT_SESSION_SHRINK_REPLAYS:-10}
    sanitize_ctest=()
    [[ ${FOEDIT_SLOW:-0} == 1 ]] || sanitize_ctest=(-LE slow)
    build_and_test sanitize "${sanitize_ctest[@]}" -- \
        -DCMAKE_BUILD_TYPE=Debug -DFOEDIT_SANITIZE=ON -DFOEDIT_WERROR=ON -DFOEDIT_BUILD_BENCH=OFF
fi

if [[ $ci == true ]]; then
    CXX=clang++ cmake -S "$root" -B "$root/build/clang" -G Ninja \
        -DCMAKE_BUILD_TYPE=Debug -DFOEDIT_WERROR=ON -DFOEDIT_BUILD_FUZZ=ON >/dev/null
    cmake --build "$root/build/clang" -j "$jobs"
fi
