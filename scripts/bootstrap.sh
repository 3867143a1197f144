#!/usr/bin/env bash
# Installs, from Debian's packages, whatever foedit needs to build, test, benchmark
# and fuzz that this machine lacks (tmux drives the terminal test of the tool).
# Quiet and quick when everything is there; safe to run any number of times. Runs as root, or through sudo otherwise.
set -euo pipefail

packages=(
    g++ clang lld cmake ninja-build ccache pkg-config
    libxml2-dev uuid-dev libicu-dev libhunspell-dev hunspell-en-us
    libgtest-dev libgmock-dev libbenchmark-dev libclang-rt-14-dev
    tmux
)

missing=()
for package in "${packages[@]}"; do
    status=$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)
    [[ "$status" == "install ok installed" ]] || missing+=("$package")
done
[[ ${#missing[@]} -eq 0 ]] && exit 0

echo "bootstrap: installing ${missing[*]}"
run_as_root=()
if [[ $(id -u) -ne 0 ]]; then
    command -v sudo >/dev/null || { echo "bootstrap: need root or sudo to install ${missing[*]}" >&2; exit 1; }
    run_as_root=(sudo)
fi
export DEBIAN_FRONTEND=noninteractive
"${run_as_root[@]}" apt-get update -qq
"${run_as_root[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
