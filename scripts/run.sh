#!/usr/bin/env bash
# Builds foedit and runs its main job: the command-line host opens the sample letter
# (examples/letter.fo) and plays the tour (examples/tour.fes) on it: typing,
# formatting, Enter, lists, undo, and saving copies under build/release/demo/.
#
#   scripts/run.sh                     the tour
#   scripts/run.sh ARGUMENTS...        foedit with your own arguments (foedit --help)
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
"$root/scripts/bootstrap.sh"
cmake -S "$root" -B "$root/build/release" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build "$root/build/release" -j "${FOEDIT_JOBS:-$(nproc)}" --target foedit_tool
foedit="$root/build/release/tools/foedit/foedit"
if [[ $# -gt 0 ]]; then
    exec "$foedit" "$@"
fi
mkdir -p "$root/build/release/demo"
cd "$root/build/release/demo"
"$foedit" "$root/examples/letter.fo" "$root/examples/tour.fes"
echo "The edited letter is in build/release/demo/tour-letter.fo (and tour-letter-utf16.fo)."
