#!/usr/bin/env bash
# Types each line into an interactive bash, and Tab; the line as it is then goes to $answers, ended with '$'.
set -euo pipefail
{
    # shellcheck disable=SC2016  # the other shell expands them
    cat << 'SETUP'
PS1= PS2=; bind 'set enable-bracketed-paste off'
source <(ptool --completion bash); source <(ctool --completion bash)
note() { printf '%s$\n' "$READLINE_LINE" >> "$answers"; READLINE_LINE=; READLINE_POINT=0; }
bind -x '"\C-xp": note'
SETUP
    while IFS= read -r line; do
        printf '%s\t\030p' "$line"
    done
    printf '\nexit\n'
} > typed
# A pseudo-terminal of its own; what is typed waits there until the shell has time for it.
script -qec 'bash --noprofile --norc -i' /dev/null < typed
