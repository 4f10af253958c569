// Which option a typed name stands for. A word typed in full counts 2, the beginning of a word 1, and the name
// with the highest sum wins; so a name typed in full beats every longer name that it abbreviates.
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

constexpr int taken = 0;
constexpr int notTaken = 1;

constexpr int oneBest = 0;
constexpr int noneMatches = 1;
constexpr int severalBest = 2;

}  // namespace

AbbreviationParser::AbbreviationParser(const RecogniserContext& parser, WordTree& names)
    : IArgumentParser("AbbreviationParser", parser), tree(names) {}

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

int AbbreviationParser::recognize(const ArgumentList& args, const RegisteredOptionStorage& storage,
                                  std::string& msg) {
    const std::string_view argument = args.front();
    logLine(name, ": recognizing argument '", argument, "'");
    if (argument.size() <= 1 || argument[0] != '-') return notTaken;

    token = Token(argument);
    switch (match(storage.index(), msg)) {
        case noneMatches:
            return notTaken;
        case severalBest:
            logLine(name, ": failed to get best match for '", token.name, "' in argument '", argument,
                    "':", msg);
            return taken;
        default:
            if (vornLogEnabled) {
                logLine(name, ": best match option for '", token.name, "' in argument '", argument, "' is '",
                        bestMatches[0].getName(), "'");
            }
            return taken;
    }
}

int AbbreviationParser::match(const OptionIndex& index, std::string& msg) {
    // No other name can score as high as one that is typed in full, so nothing is scored then.
    const OptionIndex::Spelling spelling = index.find(token.name);
    if (spelling.count == 1) {
        bestMatches.assign(1, {0, false, {token.name, spelling.option, 0, false}});
        return oneBest;
    }
    makeNameMatch(index);
    return findBest(msg);
}

void AbbreviationParser::makeNameMatch(const OptionIndex& index) {
    tree.update(index.names());
    decomposed.clear();
    decomposed.append(token.name);
    tree.match(decomposed, bestMatches);
}

int AbbreviationParser::findBest(std::string& msg) {
    if (bestMatches.empty()) return noneMatches;
    if (bestMatches.size() == 1) return oneBest;
    // In order of registration, each switch's name before its "no-" form. By heap, whose code is small: ties
    // are rare.
    const auto order = [](const NameMatch& match) {
        return std::tuple(match.name.option, match.name.ordinal, match.negated);
    };
    std::ranges::make_heap(bestMatches, {}, order);
    std::ranges::sort_heap(bestMatches, {}, order);
    msg = joined({"Ambiguous option, possible options are: ", listOfBestNames()});
    return severalBest;
}

std::string AbbreviationParser::listOfBestNames() const {
    std::string list;
    for (const NameMatch& match : bestMatches) {
        append(list, {list.empty() ? "'" : ", '", match.getName(), "'"});
    }
    return list;
}

}  // namespace vorn_3_1::internal
