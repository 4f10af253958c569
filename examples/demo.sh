#!/usr/bin/env bash
# Shows the example hosts at work on this project's own sources: demo.sh BIN-FOLDER
# Fails when a command ends with another exit code than it should.
set -euo pipefail
bin=$(cd "$1" && pwd)
[ ! -d "$bin/examples" ] || bin=$bin/examples
PATH=$bin:$PATH
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"

bold='' dim='' plain=''
if [ -t 1 ] && [ -z "${NO_COLOR:-}" ]; then
    bold=$'\e[1;36m' dim=$'\e[2m' plain=$'\e[0m'
fi
failures=0
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

say() {
    printf '\n%s# %s%s\n' "$dim" "$*" "$plain"
}

# run CODE COMMAND [ARGUMENT...]: shows the command, runs it, and expects that exit code.
run() {
    local expected=$1 code=0 shown='' word
    shift
    for word in "$@"; do
        [[ $word != *' '* ]] || word="'$word'"
        shown+=" $word"
    done
    printf '%s$%s%s\n' "$bold" "${shown/ env/}" "$plain"
    "$@" 2>&1 || code=$?
    [ "$code" = 0 ] || printf '%s[exit code %d]%s\n' "$dim" "$code" "$plain"
    [ "$code" = "$expected" ] || {
        echo "Exit code $expected was expected here." >&2
        failures=$((failures + 1))
    }
}

say "Sets of files: paths and --exclude belong to the --set in front of them."
run 0 srcstat --set=library src include --exclude=host --set=companion host include/vorn/host --set=tests tests

say "Every word of a name may be cut short, and so may an allowed value; a list holds several."
run 0 srcstat --lang=cp,cm --dep=1 --no-com-l --e-f --so=c src/recognisers cmake

say "Arguments from a response file; what follows -- is a path, whatever it looks like."
run 0 srcstat @examples/demo.args --set=build -b --no-b-l -- CMakeLists.txt

say "A name that is mistyped, or lacks a word, is refused with the nearest names;"
run 2 srcstat --langauge=cpp src
run 2 minimal --output=x
say "an ambiguous one with all that could be meant; a value with what is allowed."
run 2 srcstat --s=name src
run 2 srcstat --language=c src
run 2 srcstat --depth=12abc src
run 2 srcstat --depth=0 src
run 2 srcstat --exclude -x src
run 2 srcstat @missing.args
run 1 srcstat --depth=1 src/missing include/vorn

say "Rules: what is required, and what excludes what. Short options may be joined in this tool."
run 0 thumbs -vvq90 -osmall --size=80,160 --colour a.png
run 2 thumbs a.png
run 2 thumbs -o small
run 2 thumbs --quiet -v -o small a.png

say "Positions: each file gets the macros in front of it."
run 0 build -DA a.c --define B=1 b.c

say "Commands, shortened by words; an option whose meaning depends on where it stands."
cd "$work"
run 0 notes add -l home,urgent "Buy milk" "Feed the cat" --label=work "Write the report"
run 0 notes rm 2
run 0 notes l --so=t
run 2 notes lsit
say "Layers: default, settings, environment, command line; mistakes name their place."
cd "$root/examples/sample"
run 0 env NOTES_WIDTH=30 notes --show-settings list --only=home
run 2 env NOTES_WIDTH=5 notes list
cd wrong
run 2 notes list
cd "$root"

say "The help, and the part of it that is usually hidden."
run 0 srcstat --help-all
run 0 notes list --help

if command -v mandoc > /dev/null; then
    say "The manual page, made of the same declarations."
    printf '%s$ man srcstat%s\n' "$bold" "$plain"
    srcstat --manual-page | mandoc -T utf8 -O width=78 | sed 's/.\x08//g' | head -n 32
fi

# tab LINE: what the Tab key offers behind the line.
tab() {
    printf '%s$ %s<Tab>%s\n' "$bold" "$1" "$plain"
    "${1%% *}" --completion answer bash "$1" "" | tail -n +4
}

say "Completion: shortened names, values, what the tool itself knows."
tab "srcstat --e-f"
tab "srcstat --lang=cpp,p"
cd "$root/examples/sample"
tab "notes list --only "
cd "$root"

say "A host on the plain interface."
run 0 plain_interface -l 1 in.txt --verbose -- --rest

exit "$((failures > 0))"
