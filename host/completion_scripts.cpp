// The scripts that shells run. Each asks the tool for what fits, and leaves paths to the shell.
//
// bash hands over the line as it was typed, since it cuts words at '=' and ':' too, and gets texts that are ready to be
// inserted. zsh and fish hand over whole words, and get the candidates with their descriptions. completion.cpp answers.
#include <algorithm>

#include "completion.h"

namespace vorn_3_1::host::detail {

namespace {

// @FUNCTION@, @PROGRAM@ and @OPTION@ are filled in. The tool is run as it was typed or, for an alias, by its name.

constexpr char bashScript[] = R"script(# Completion of @PROGRAM@ for bash: source <(@PROGRAM@ @OPTION@ bash)
@FUNCTION@() {
    local tool=$1 path answer
    type -P -- "$tool" > /dev/null || tool=@PROGRAM@
    mapfile -t answer < <("$tool" @OPTION@ answer bash "${COMP_LINE:0:COMP_POINT}" "$COMP_WORDBREAKS" 2> /dev/null)
    COMPREPLY=("${answer[@]:3}")
    case ${answer[0]} in
        open) compopt -o nospace ;;
        list)
            # What they have in common is less than what was typed. With the typed word among them it is that.
            if ((COMP_TYPE == 9 || COMP_TYPE == 33)); then
                COMPREPLY=("$2" "${COMPREPLY[@]/#/"$2 -> "}")
            fi
            ;;
        files | folders)
            if [[ -z ${answer[1]} && ${#COMPREPLY[@]} -eq 0 ]]; then
                # The shell itself knows best how to write paths.
                if [[ ${answer[0]} == files ]]; then compopt -o default; else compopt -o dirnames; fi
                return
            fi
            local kind=-f quoted
            [[ ${answer[0]} == files ]] || kind=-d
            while IFS= read -r path; do
                printf -v quoted %q "$path"
                [[ ! -d $path ]] || { quoted+=/; compopt -o nospace; }
                COMPREPLY+=("${answer[1]}$quoted")
            done < <(compgen "$kind" -- "${answer[2]}")
            ;;
    esac
}
complete -F @FUNCTION@ @PROGRAM@
)script";

constexpr char zshScript[] = R"script(#compdef @PROGRAM@
# Completion of @PROGRAM@ for zsh: source <(@PROGRAM@ @OPTION@ zsh), or a file _@PROGRAM@ in a folder of $fpath.
@FUNCTION@() {
    local tool=${(Q)words[1]} line text shown kind kept
    local -a before answer fields texts openTexts descriptions openDescriptions
    [[ -x $tool ]] || (( $+commands[$tool] )) || tool=@PROGRAM@
    (( CURRENT > 2 )) && before=("${(@Q)words[2,CURRENT-1]}")
    answer=("${(@f)$("$tool" @OPTION@ answer zsh "${before[@]}" "${(Q)PREFIX}" 2> /dev/null)}")
    fields=("${(@ps:\t:)answer[1]}")
    kind=$fields[1] kept=$fields[2]
    local -i widest=0
    for line in "${(@)answer[2,-1]}"; do
        fields=("${(@ps:\t:)line}")
        (( ${#fields[2]} > widest )) && widest=${#fields[2]}
    done
    for line in "${(@)answer[2,-1]}"; do
        fields=("${(@ps:\t:)line}")
        text=$fields[2] shown=$fields[2]
        [[ -n $fields[3] ]] && shown="${(r:widest:)text} -- $fields[3]"
        if [[ $fields[1] == "=" ]]; then
            openTexts+=("$text") openDescriptions+=("$shown")
        else
            texts+=("$text") descriptions+=("$shown")
        fi
    done
    # The tool has chosen what fits: -U, since a shortened name is not the beginning of the full one.
    (( $#openTexts )) && compadd -U -l -V names -S '' -d openDescriptions -a openTexts
    (( $#texts )) && compadd -U -l -V names -d descriptions -a texts
    case $kind in
        list) compstate[insert]='' compstate[list]='list force' ;;
        files) compset -p ${#kept}; _files ;;
        folders) compset -p ${#kept}; _path_files -/ ;;
    esac
}
if [[ $funcstack[1] == _@PROGRAM@ ]]; then @FUNCTION@ "$@"; else compdef @FUNCTION@ @PROGRAM@; fi
)script";

constexpr char fishScript[] = R"script(# Completion of @PROGRAM@ for fish: @PROGRAM@ @OPTION@ fish | source
function @FUNCTION@
    set -l before (commandline -opc)
    set -l tool $before[1]
    set -e before[1]
    command -q -- $tool; or set tool @PROGRAM@
    set -l raw (commandline -ct)
    set -l word (string unescape -- "$raw" 2> /dev/null); or set word "$raw"
    set -l answer (command $tool @OPTION@ answer fish $before "$word" 2> /dev/null)
    set -l kind (string split -- \t "$answer[1]")
    set -e answer[1]
    for line in $answer
        string sub -s 3 -- $line
    end
    contains -- "$kind[1]" files folders; or return
    set -l path (string sub -s (math (string length -- "$kind[2]") + 1) -- "$raw")
    for found in (complete -C "'' $path")
        if test $kind[1] = files; or string match -qr '/(\t|$)' -- $found
            printf '%s%s\n' "$kind[2]" $found
        end
    end
end
complete -c @PROGRAM@ -f -a '(@FUNCTION@)'
)script";

bool isPlain(char character) {
    return (character >= '0' && character <= '9') || (character >= 'A' && character <= 'Z') ||
           (character >= 'a' && character <= 'z');
}

/// A name for a function, in any of the shells.
std::string functionName(std::string_view program) {
    std::string name = "_complete_";
    for (const char character : program)
        name += isPlain(character) ? character : '_';
    return name;
}

/// As it is to be written in any of the shells.
std::string quotedForShell(std::string_view text) {
    const bool isSimple = std::all_of(text.begin(), text.end(), [](char character) {
        return isPlain(character) || character == '-' || character == '_' || character == '.';
    });
    if (isSimple) return std::string(text);
    std::string quoted = "'";
    for (const char character : text) {
        if (character == '\'') {
            quoted += "'\\''";
        } else if (character != '\n') {
            quoted += character;
        }
    }
    return quoted + "'";
}

std::string filledIn(std::string_view script, std::string_view program, std::string_view option) {
    const std::pair<std::string_view, std::string> names[] = {
        {"@FUNCTION@", functionName(program)},
        {"@PROGRAM@", quotedForShell(program)},
        {"@OPTION@", quotedForShell("--" + std::string(option))},
    };
    std::string text;
    for (std::size_t at = script.find('@'); at != std::string_view::npos; at = script.find('@')) {
        text.append(script.substr(0, at));
        script.remove_prefix(at);
        const auto* named = std::find_if(std::begin(names), std::end(names), [script](const auto& each) {
            return script.substr(0, each.first.size()) == each.first;
        });
        const bool isName = named != std::end(names);
        text.append(isName ? std::string_view(named->second) : script.substr(0, 1));
        script.remove_prefix(isName ? named->first.size() : 1);
    }
    return text.append(script);
}

}  // namespace

std::string completionScript(std::string_view shell, std::string_view program, std::string_view option) {
    if (shell == "bash") return filledIn(bashScript, program, option);
    if (shell == "zsh") return filledIn(zshScript, program, option);
    return shell == "fish" ? filledIn(fishScript, program, option) : std::string();
}

}  // namespace vorn_3_1::host::detail
