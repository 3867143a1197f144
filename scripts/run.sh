#!/usr/bin/env bash
# Builds foedit and runs the demo: it opens examples/letter.fo, types into it,
# undoes, redoes, and saves a copy under build/release/demo/.
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/bootstrap.sh"
cmake -S "$root" -B "$root/build/release" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build "$root/build/release" -j "${FOEDIT_JOBS:-$(nproc)}" --target foedit_demo
mkdir -p "$root/build/release/demo"
"$root/build/release/tools/demo/foedit_demo" "${1:-$root/examples/letter.fo}" "$root/build/release/demo/letter.fo"
