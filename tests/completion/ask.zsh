#!/usr/bin/env zsh
# Types each line into an interactive zsh, and Tab; the line as it is then goes to $answers, ended with '$'.
zmodload zsh/zpty zsh/zselect
typeset -F SECONDS
: > $answers

# Waits until so many lines have been answered.
await() {
    local -F until=$(( SECONDS + 10 ))
    local ignored
    while (( SECONDS < until && $(wc -l < $answers) < $1 )); do
        zpty -rt shell ignored || zselect -t 1
        print -rn -- $ignored
    done
}

zpty -b shell zsh -f -i
zpty -w shell 'PS1= PS2=; autoload -Uz compinit; compinit -u -D; LISTMAX=1000; unsetopt beep'
zpty -w shell 'source <(ptool --completion zsh); source <(ctool --completion zsh)'
zpty -w shell 'note() { print -r -- "$BUFFER\$" >> $answers; BUFFER= }; zle -N note; bindkey "^Xp" note'
zpty -w shell 'print READY >> $answers'
await 1
: > $answers
integer number=0
while IFS= read -r line; do
    zpty -n -w shell "$line"$'\t\x18p'
    await $(( ++number ))
done
zpty -d shell
