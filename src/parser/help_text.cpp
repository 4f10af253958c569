// The help text: for each group its name and title, then every option's names and value syntax beside its description.
//
//     general                                                     the group's name
//      General options                                            its title
//
//     -l, -level=<integer> (5)      How hard to try.              names, type, default; description
//     -v, -verbose | -no-verbose (default)                        a heading that is too long for its column
//                                   Say what is done.
//
// Groups stand in the order in which they appeared, and the options of each in the order of registration. The names of
// an option stand in reverse, so that the first one is last, next to its value (writeNames). The hidden group is left
// out, or is the only one. Positional options are never listed.
//
// This is the help of the plain interface. The companion has its own, in host/help.cpp and host/help_text.cpp.
#include <exception>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "parser/basic_parser.h"
#include "text/joined_text.h"

namespace vorn_3_1 {

using namespace internal;

namespace {

constexpr std::string_view hiddenGroup = "vorn_hidden";

// Columns. A heading may fill 29 of the 30 in front of the descriptions; a longer one gets a line of its own.
constexpr std::size_t longestSharedHeading = 29;
constexpr unsigned descriptionIndent = 30;
constexpr unsigned descriptionWidth = 50;
constexpr unsigned titleIndent = 1;
constexpr unsigned titleWidth = 80;

// Further names come before the first one, the last of them first: "-third, -second, -first".
void writeNames(std::string& out, const OptionDescription& option) {
    const std::string_view firstName = option.firstName();
    std::vector<std::string_view> names;
    option.eachName([&names](const RegisteredName& name) { names.push_back(name.key()); });
    for (std::size_t i = names.size() - 1; i > 0; --i)
        append(out, {"-", names[i], ", "});
    append(out, {"-", firstName});
}

// Both forms, the default one marked.
void writeSwitchSyntax(std::string& out, const OptionDescription& option) {
    constexpr std::string_view mark = " (default)";
    const bool isOn = option.hasDefault() && option.defaultValue().asBool();
    append(out, {isOn ? mark : "", " | -no-", option.firstName(), option.hasDefault() && !isOn ? mark : ""});
}

// "=<integer>", or "=fast | full" where values are allowed; and the default: " (full)".
void writeValueSyntax(std::string& out, const OptionDescription& option) {
    if (option.allowedValues().empty()) append(out, {"=<", option.getTypeName(), ">"});
    std::string_view before = "=";
    for (const tamsu2::variant_t& allowed : option.allowedValues()) {
        append(out, {before, option.toString(option.garbage(), allowed)});
        before = " | ";
    }
    if (option.hasDefault())
        append(out, {" (", option.toString(option.garbage(), option.defaultValue()), ")"});
}

// What stands in front of the description: "-l, -level=<integer> (5)". An option without a value has only its names.
std::string headingOf(const OptionDescription& option) {
    std::string heading;
    writeNames(heading, option);
    if (option.isSwitch()) {
        writeSwitchSyntax(heading, option);
    } else if (option.type() != tamsu2::qel_empty) {
        writeValueSyntax(heading, option);
    }
    return heading;
}

// Without a description there is no line at all, unless the heading has one of its own: kept on purpose.
void writeOption(std::string& out, const OptionDescription& option) {
    std::string heading = headingOf(option);
    if (heading.size() > longestSharedHeading) {
        append(out, {heading, "\n"});
        heading.clear();
    }
    out += BasicParser::paragraphString(option.description(), std::move(heading), descriptionIndent,
                                        descriptionWidth);
}

// The name on a line, the title on the next ones with an empty line behind it. Either may be missing.
void writeGroupHead(std::string& out, const OptionGroup& group) {
    if (!group.name.empty()) append(out, {group.name, "\n"});
    if (group.title.empty()) return;
    append(out, {BasicParser::paragraphString(group.title, "", titleIndent, titleWidth), "\n"});
}

}  // namespace

const char* BasicParser::getDescription(bool hidden) {
    try {
        return garbage.init(helpText(hidden).c_str());
    } catch (const std::exception&) {
        setLastError("Unknown error handled.");
        return getErrorDesc();
    }
}

std::string BasicParser::helpText(bool hidden) {
    // Options by group, so that many groups do not each walk all options.
    std::vector<std::vector<const OptionDescription*>> members(storage.groups().size());
    for (unsigned i = 0; i < storage.size(); ++i) {
        const OptionDescription& option = storage.description(i);
        if (!option.isPositional()) members[option.group()].push_back(&option);
    }
    std::string out;
    for (std::size_t i = 0; i < members.size(); ++i) {
        const OptionGroup& group = storage.groups()[i];
        if ((group.name == hiddenGroup) != hidden) continue;
        writeGroupHead(out, group);
        for (const OptionDescription* option : members[i])
            writeOption(out, *option);
        out += "\n";
    }
    return out;
}

}  // namespace vorn_3_1
