#!/usr/bin/env bash
# Builds a libFuzzer target with clang and runs it for a given time.
#
#   scripts/fuzz.sh [TARGET] [SECONDS] [libFuzzer options...]
#
# TARGET is the name of fuzz/<TARGET>_fuzz.cpp: session (the default), markup,
# document_reader. The build goes to build/fuzz; the working corpus, which grows from
# run to run, to build/fuzz/corpus/<TARGET>; crashes and hangs to build/fuzz/artifacts/.
# The session target starts from seeds made here from the corpus documents (each one
# with a few hundred action bytes in front, see fuzz/session_fuzz.cpp), in
# build/fuzz/seeds/session; nothing is copied into the repository.
#
#   FOEDIT_CORPUS_DIR  folder of .fo documents (default: ../shared/corpus/fop-examples)
#   FOEDIT_FUZZ_JOBS   parallel fuzzing processes (default 1)
#   FOEDIT_FUZZ_BUILD  build folder (default: build/fuzz)
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
target=${1:-session}
seconds=${2:-60}
shift $(($# < 2 ? $# : 2))
corpus_documents=${FOEDIT_CORPUS_DIR:-$root/../shared/corpus/fop-examples}
jobs=${FOEDIT_FUZZ_JOBS:-1}
build=${FOEDIT_FUZZ_BUILD:-$root/build/fuzz}

"$root/scripts/bootstrap.sh"
CXX=clang++ cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DFOEDIT_BUILD_FUZZ=ON \
    -DFOEDIT_BUILD_TESTS=OFF -DFOEDIT_BUILD_BENCH=OFF -DFOEDIT_BUILD_TOOLS=OFF >/dev/null
cmake --build "$build" --target "foedit_${target}_fuzz"

# One seed per document and per action count: a two-byte big-endian length, that many
# action bytes (repeatable: drawn from a fixed seed), then the document.
make_session_seeds() { # <folder>
    local folder=$1 document count index=0
    mkdir -p "$folder"
    RANDOM=20240607
    for document in "$corpus_documents"/*.fo; do
        for count in 32 200; do
            local seed="$folder/$(basename "$document" .fo)-$count"
            {
                printf "\\x%02x\\x%02x" $((count >> 8)) $((count & 255))
                for ((i = 0; i < count; i++)); do printf "\\x%02x" $((RANDOM & 255)); done
                cat "$document"
            } >"$seed"
            index=$((index + 1))
        done
    done
    echo "fuzz: $index seeds in $folder"
}

corpus=$build/corpus/$target
mkdir -p "$corpus" "$build/artifacts"
seed_folders=()
if [[ $target == session ]]; then
    make_session_seeds "$build/seeds/session"
    seed_folders+=("$build/seeds/session")
fi

options=(-max_total_time="$seconds" -timeout=60 -rss_limit_mb=4096 -print_final_stats=1
    -artifact_prefix="$build/artifacts/${target}-")
[[ $jobs -gt 1 ]] && options+=(-jobs="$jobs" -workers="$jobs")
cd "$build"
exec "$build/fuzz/foedit_${target}_fuzz" "${options[@]}" "$@" "$corpus" "${seed_folders[@]}"
