// The options and command lines that every parser is measured on.
#ifndef BENCHMARKS_WORKLOAD_H
#define BENCHMARKS_WORKLOAD_H

#include <cstddef>
#include <string>
#include <vector>

namespace bench {

enum class Kind { onOff, integer, text, number, list };

/// One option with two names, in every spelling that a parser wants. The texts live as long as the process
/// and lie close together, as those in a host's source would; no parser pays for joining names.
struct OptionSpec {
    const char* name;         ///< "archive-buffer-action"
    const char* alias;        ///< "x17"
    const char* names;        ///< "archive-buffer-action,x17"
    const char* dashedNames;  ///< "--archive-buffer-action,--x17"
    const char* description;
    Kind kind;
};
using Options = std::vector<OptionSpec>;

/// A quarter each of switches, integers and texts; the last quarter alternates numbers and lists.
/// All names are different; up to 1000 options they have three words, beyond that four.
Options makeOptions(std::size_t count);

/// How names are typed: in full, as the shortest beginning that ends in the last word, or with every
/// word cut ("archive-buffer-action", "archive-buffer-act", "arc-buf-act").
enum class Form { full, prefix, cut };

/// An argument vector.
struct CommandLine {
    std::vector<std::string> texts;  ///< Without the program's name.
    std::vector<char*> argv;         ///< With it, and with the null pointer at the end.
    std::size_t items = 0;           ///< Values, counting switches and every list item.
    std::size_t itemBytes = 0;       ///< Their texts, each with its end.

    int argc() const { return static_cast<int>(argv.size()) - 1; }
};

/// `count` arguments of the form --name=value (switches: --name), spread evenly over the options. Without decimal
/// points, no number needs to know the locale's.
CommandLine makeCommandLine(const Options& options, std::size_t count, Form form,
                            bool hasDecimalPoints = true);

}  // namespace bench

#endif
