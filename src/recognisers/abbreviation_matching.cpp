// Which option a typed name stands for: cuts the name out of the argument, has the names searched, and says which were
// found. A word typed in full counts 2, the beginning of a word 1, and the name with the highest sum wins; so a name
// typed in full beats every longer name that it abbreviates:
//
//     typed      names                      sums
//     out-f      out-file, output-file      3, 2: out-file
//     o-f        out-file, output-file      2, 2: ambiguous
//     out-file   out-file, output-file      4: typed in full, nothing is compared
//
// The words are compared in name_search.cpp, not here. It counts the shortened words instead, and fewer are better:
// only names with as many words as the typed one match, so the two counts always give the same order.
#include <algorithm>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "base/diagnostic_log.h"
#include "options/registered_option_storage.h"
#include "recognisers/abbreviation_parser.h"
#include "text/joined_text.h"

namespace vorn_3_1::internal {

namespace {

// What recognize returns.
constexpr int taken = 0;
constexpr int notTaken = 1;

}  // namespace

AbbreviationParser::AbbreviationParser(const RecogniserContext& parser, NameSearch& nameSearch)
    : IArgumentParser("AbbreviationParser", parser), search(nameSearch) {}

// The name stands between the hyphens, one or two, and the first '=':
//     --x=1 -> x      -x -> x      ---x -> -x      -- -> -      -=5 -> (empty)
AbbreviationParser::Token::Token(std::string_view argument) {
    const std::size_t prefix = argument.size() > 2 && argument[1] == '-' ? 2 : 1;
    const std::size_t equals = argument.find('=');
    hasValue = equals != std::string_view::npos;
    name = argument.substr(0, equals);
    name.remove_prefix(std::min(prefix, name.size()));
    value = hasValue ? argument.substr(equals + 1) : std::string_view("");
}

// A single hyphen is no name, and may be positional. What is found stays in the recogniser for parse, which comes next
// for the same argument.
int AbbreviationParser::recognize(const ArgumentList& args, const RegisteredOptionStorage& storage,
                                  std::string& msg) {
    const std::string_view argument = args.front();
    logLine(name, ": recognizing argument '", argument, "'");
    if (argument.size() <= 1 || argument[0] != '-') return notTaken;

    token = Token(argument);
    const OptionIndex& index = storage.index();
    findBest(index);
    if (bestMatches.empty()) return notTaken;
    if (bestMatches.size() > 1) {
        msg = joined({"Ambiguous option, possible options are: ", listOfBestNames(index)});
        logLine(name, ": failed to get best match for '", token.name, "' in argument '", argument, "':", msg);
    } else if (vornLogEnabled) {
        logLine(name, ": best match option for '", token.name, "' in argument '", argument, "' is '",
                nameOf(bestMatches[0], index), "'");
    }
    return taken;
}

void AbbreviationParser::findBest(const OptionIndex& index) {
    // No other name can match better than one that is typed in full, so nothing is compared then.
    const NameMatch exact = index.findExactly(token.name);
    if (exact.name != none) {
        bestMatches.assign(1, exact);
        return;
    }
    const std::vector<RegisteredName>& names = index.names();
    search.find(token.name, names, bestMatches);
    if (bestMatches.size() < 2) return;
    // In order of registration, each switch's name before its "no-" form.
    std::ranges::sort(bestMatches, {}, [&names](const NameMatch& match) {
        return std::tuple(names[match.name].option, match.name, match.negated);
    });
}

// As a user would type it: "level", or "no-verbose" for the other form of a switch.
std::string AbbreviationParser::nameOf(const NameMatch& match, const OptionIndex& index) {
    return joined({match.negated ? negation : "", index.names()[match.name].key()});
}

// "'level', 'no-level'", for both messages about an ambiguous name.
std::string AbbreviationParser::listOfBestNames(const OptionIndex& index) const {
    std::string list;
    for (const NameMatch& match : bestMatches) {
        append(list, {list.empty() ? "'" : ", '", nameOf(match, index), "'"});
    }
    return list;
}

}  // namespace vorn_3_1::internal
