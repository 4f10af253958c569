#!/usr/bin/env bash
# Shows the example hosts at work on this project's own sources: demo.sh BIN-FOLDER
# Fails when a command ends with another exit code than it should.
set -euo pipefail
bin=$(cd "$1" && pwd)
[ ! -d "$bin/examples" ] || bin=$bin/examples
cd "$(dirname "${BASH_SOURCE[0]}")/.."

bold= dim= plain=
if [ -t 1 ] && [ -z "${NO_COLOR:-}" ]; then
    bold=$'\e[1;36m' dim=$'\e[2m' plain=$'\e[0m'
fi
failures=0

say() {
    printf '\n%s# %s%s\n' "$dim" "$*" "$plain"
}

# run CODE COMMAND [ARGUMENT...]: shows the command, runs it, and expects that exit code.
run() {
    local expected=$1 code=0
    shift
    printf '%s$ %s%s\n' "$bold" "$*" "$plain"
    "$bin/$1" "${@:2}" 2>&1 || code=$?
    [ "$code" = 0 ] || printf '%s[exit code %d]%s\n' "$dim" "$code" "$plain"
    [ "$code" = "$expected" ] || {
        echo "Exit code $expected was expected here." >&2
        failures=$((failures + 1))
    }
}

say "Sets of files: paths and --exclude belong to the --set in front of them."
run 0 srcstat --set=library src include --exclude=host --set=tests tests

say "Every word of a name may be cut short, and so may an allowed value; a list holds several."
run 0 srcstat --lang=cp,cm --dep=1 --no-com-l --e-f --so=c src/base src/parser cmake

say "Arguments from a response file; what follows -- is a path, whatever it looks like."
run 0 srcstat @examples/demo.args --set=build --no-b-l -- CMakeLists.txt

say "Ambiguous names are refused, with all that could be meant,"
run 2 srcstat --s=name src
say "and so are unknown options, values that are not allowed, and misuse."
run 2 srcstat --langauge=cpp src
run 2 srcstat --language=c src
run 2 srcstat --depth=12abc src
run 2 srcstat --depth=0 src
run 2 srcstat --depth --each-file src
run 2 srcstat @missing.args
run 1 srcstat --depth=1 src/missing include/vorn

say "The help, and the part of it that is usually hidden."
run 0 srcstat --help-all

say "The minimal host, and one on the plain interface."
run 0 minimal --effort=3 --out-f=a,b.txt --tags=new,small --verb in.txt
run 2 minimal --level=4
run 0 plain_interface -l 1 in.txt --verbose -- --rest

exit "$((failures > 0))"
