#!/usr/bin/env bash
# Runs every command of transcript.txt again and compares what it prints: check_transcript.sh BIN-FOLDER
# With --update as second argument, writes the transcript anew.
set -euo pipefail
PATH=$(cd "$1" && pwd):$PATH
cd "$(dirname "${BASH_SOURCE[0]}")"
export COLUMNS=80

replay() {
    local line code
    head -n 1 transcript.txt
    grep '^\$ ' transcript.txt | while IFS= read -r line; do
        printf '%s\n' "$line"
        code=0
        (eval "${line#\$ }") 2>&1 < /dev/null || code=$?
        [ "$code" = 0 ] || echo "[exit code $code]"
    done
}

now=$(mktemp)
trap 'rm -f "$now"' EXIT
replay > "$now"
if [ "${2:-}" = --update ]; then
    cp "$now" transcript.txt
else
    diff -u --label expected --label printed transcript.txt "$now"
fi
