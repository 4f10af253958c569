#!/usr/bin/env fish
# Asks fish what it offers for each line; that goes to $answers, separated by ', '.
ptool --completion fish | source
ctool --completion fish | source
while read -l line
    set -l found (complete -C "$line" | string replace -r '\t.*' '')
    echo (string join ', ' -- $found) >>$answers
end
