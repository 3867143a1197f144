#!/usr/bin/env bash
# Keys mode in a real terminal: runs `foedit -k` on the sample letter inside tmux,
# presses keys as a person would (typing, Shift+arrows, Backspace, Enter, undo,
# save, Esc), prints the screen after each step and checks what it shows and what
# was saved. Exits non-zero when a check fails.
#
#   scripts/tmux-keys-demo.sh [path/to/foedit]
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
foedit=${1:-$root/build/release/tools/foedit/foedit}
command -v tmux >/dev/null || { echo "tmux-keys-demo: tmux is not installed" >&2; exit 1; }
[[ -x $foedit ]] || { echo "tmux-keys-demo: no foedit at $foedit (build it first)" >&2; exit 1; }

work=$(mktemp -d)
session=foedit-keys-demo-$$
# A server of our own, so the demo neither sees nor disturbs other tmux sessions.
tmux_() { tmux -L "$session" "$@"; }
trap 'tmux_ kill-server 2>/dev/null || true; rm -rf "$work"' EXIT

screen() { tmux_ capture-pane -p -t "$session"; }

# Waits up to five seconds for `text` on the screen.
wait_for() {
    local text=$1
    for _ in $(seq 50); do
        screen | grep -qF -- "$text" && return 0
        sleep 0.1
    done
    echo "tmux-keys-demo: '$text' never showed; the screen was:" >&2
    screen >&2
    exit 1
}

step() { # <title> <text to wait for>
    wait_for "$2"
    echo "=== $1"
    screen | sed -e 's/[[:space:]]*$//' | grep -v '^$'
}

tmux_ new-session -d -s "$session" -x 100 -y 16 \
    "TERM=xterm '$foedit' -k -o '$work/letter.fo' --color=never; echo \"foedit exited with \$?\"; sleep 30"
step "keys mode opens on the sample letter, caret at the first stop" "|12 March 2024"

tmux_ send-keys -t "$session" -l "Date: "
step "typed 'Date: '" "Date: |12 March 2024"

tmux_ send-keys -t "$session" S-Right S-Right
step "Shift+Right twice selects '12'" "Date: ^12|"

tmux_ send-keys -t "$session" -l "14"
step "typing replaces the selection" "Date: 14| March 2024"

tmux_ send-keys -t "$session" C-Right C-Right BSpace
step "Ctrl+Right twice, then Backspace" "Date: 14 March|2024"

tmux_ send-keys -t "$session" C-z
step "Ctrl+Z undoes the Backspace" "Date: 14 March |2024"

tmux_ send-keys -t "$session" Enter
step "Enter splits the paragraph" "<fo:block text-align=\"end\">|2024</fo:block>"

tmux_ send-keys -t "$session" C-s
step "Ctrl+S saves to the output file" "saved $work/letter.fo"

tmux_ send-keys -t "$session" Escape
step "Esc leaves keys mode" "foedit exited with 0"

grep -qF 'Date: 14 March </fo:block>' "$work/letter.fo" ||
    { echo "tmux-keys-demo: the saved letter lacks the edit" >&2; cat "$work/letter.fo" >&2; exit 1; }
echo "=== the saved file holds the edited paragraph:"
grep -F 'Date: 14' "$work/letter.fo"
grep -A1 -F 'Date: 14' "$work/letter.fo" | tail -1
echo "tmux-keys-demo: keys mode works"
