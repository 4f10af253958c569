# Shared by the scripts beside it; sourced by bash.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
jobs=$(nproc 2> /dev/null || echo 2)
export CMAKE_BUILD_PARALLEL_LEVEL=${CMAKE_BUILD_PARALLEL_LEVEL:-$jobs}

# can_link COMPILER FLAG...: whether it makes a program of the source on standard input. Only linking tells: asked for a
# runtime's file, the compiler names that of the other width. Not into /dev/null, which a linker may replace.
can_link() {
    local program code=0
    program=$(mktemp)
    "$@" -x c++ -o "$program" - 2> /dev/null || code=$?
    rm -f "$program"
    return "$code"
}

has_multilib() {
    can_link g++ -m32 <<< '#include <string>
int main() {}'
}

# A probe is a function of the name, a file's path, or a command.
is_there() {
    if declare -F "$1" > /dev/null; then
        "$1"
    elif [[ $1 == /* ]]; then
        [[ -e $1 ]]
    else
        command -v "$1" > /dev/null
    fi
}

# need package:probe ... installs the packages whose probe fails, when run as root on a system that has apt-get;
# otherwise it says what is missing and ends the script. It calls nothing when all is there.
need() {
    local missing=() pair
    for pair in "$@"; do
        is_there "${pair#*:}" || missing+=("${pair%%:*}")
    done
    ((${#missing[@]})) || return 0
    if ((EUID != 0)) || ! command -v apt-get > /dev/null; then
        echo "${0##*/}: missing: ${missing[*]}. As root: apt-get install ${missing[*]}" >&2
        exit 1
    fi
    echo "${0##*/}: installing ${missing[*]}"
    export DEBIAN_FRONTEND=noninteractive
    apt-get update -qq < /dev/null
    apt-get install -qq -y --no-install-recommends "${missing[@]}" < /dev/null > /dev/null
    for pair in "$@"; do
        is_there "${pair#*:}" && continue
        echo "${0##*/}: ${pair%%:*} is installed, but ${pair#*:} is not to be found" >&2
        exit 1
    done
}

# What every build of this tree takes.
need_build_tools() {
    need g++:g++ g++-multilib:has_multilib cmake:cmake ninja-build:ninja \
        googletest:/usr/src/googletest/googletest/src/gtest-all.cc
}
