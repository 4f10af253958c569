// Completion: what a shell may put in the place of what is typed. The shell's script (completion_scripts.cpp) calls the
// tool back with the words up to the cursor, and prints or inserts what it answers.
//
//     thumbs --completion bash                       prints the script
//     thumbs --completion answer zsh --qu            answers: --quality=, --quiet
#ifndef VORN_HOST_COMPLETION_H
#define VORN_HOST_COMPLETION_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "table.h"

namespace vorn_3_1::host::detail {

/// One text that fits.
struct Candidate {
    std::string text;  ///< The whole word.
    std::string description;
    bool isOpen;  ///< More follows without a blank, as behind "--size=".
};

struct Completions {
    std::vector<Candidate> candidates;
    Completion paths = Completion::nothing;  ///< Paths fit as well.
    std::string kept;                        ///< What stands in front of the path in the word.
    /// What the candidates have in common says less than what is typed, so that they are to be listed only. "--c-d",
    /// which "--copy-dir" and "--create-data" fit, would become "--c".
    bool areListedOnly = false;
};

/// What fits the word behind the others.
Completions completionsOf(Table& root, std::vector<std::string> before, const std::string& word);

/// A command line up to the cursor, cut into words as bash does.
struct BashLine {
    std::vector<std::string> before;  ///< Without the program's name.
    std::string word;                 ///< The last one.
    std::size_t kept = 0;             ///< So much of it stands in front of what the shell replaces.
    char quote = '\0';                ///< The quote that is open.
};

/// `breaks` are the characters that also end what the shell replaces: "--size=1" is one word, of which it replaces "1".
BashLine bashLine(std::string_view text, std::string_view breaks);

/// The text as it has to be written in bash, behind an open quote if there is one.
std::string bashQuoted(std::string_view text, char quote);

/// What the tool prints if its arguments ask for a script or an answer; nothing if they do not. Sets `fault` if they do
/// so wrongly.
std::optional<std::string> completionOutput(Table& root, const std::vector<std::string>& arguments,
                                            std::string& fault);

/// The script for "bash", "zsh" or "fish"; empty for another shell.
std::string completionScript(std::string_view shell, std::string_view program, std::string_view option);

}  // namespace vorn_3_1::host::detail

#endif
