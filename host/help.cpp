// What the companion's help says of each option: its forms, its value, its notes, its section. help_text.cpp lays the
// page out for a terminal.
//
//     Record        what was declared
//     OptionInfo    the same as plain data, for hosts as well (infoOf)
//     HelpEntry     -q, --quality | N | How good they look. | 1 to 100; default: 80 (entryOf)
//     HelpPage      the entries in sections (PageMaker); help_text.cpp and manual.cpp write it
#include "help.h"

#include <algorithm>
#include <utility>

#include "process_environment.h"
#include "shown_text.h"
#include "value_reader.h"

namespace vorn_3_1::host {

namespace detail {

namespace {

OptionInfo::Kind kindOf(const Record& record) {
    switch (record.what) {
        case What::option:
            return OptionInfo::Kind::option;
        case What::toggle:
            return OptionInfo::Kind::toggle;
        case What::count:
            return OptionInfo::Kind::count;
        case What::positional:
            return OptionInfo::Kind::positional;
        case What::rest:
            return OptionInfo::Kind::rest;
        default:
            return OptionInfo::Kind::flag;
    }
}

bool isShort(std::string_view name) { return name.size() == 1; }

std::vector<std::string> formsOf(const Record& record, const std::vector<std::string>& names) {
    if (record.isPositional()) return {record.metavar()};
    std::vector<std::string> forms;
    for (const std::string& name : names) {
        if (isShort(name)) forms.push_back(hyphened(name));
    }
    const bool isToggle = record.what == What::toggle;
    for (const std::string& name : names) {
        if (!isShort(name)) forms.push_back((isToggle ? "--[no-]" : "--") + name);
    }
    const bool isAllShort = forms.back().size() == 2;
    if (isToggle && isAllShort) forms.push_back("--no-" + names.front());
    return forms;
}

std::vector<std::string> textsOf(const Record& record, const Values& values) {
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < values.size(); ++i)
        texts.push_back(record.shownValue(values, i));
    return texts;
}

std::string onOrOff(bool isOn) { return isOn ? "on" : "off"; }

std::vector<std::string> defaultsOf(const Record& record) {
    if (record.defaults() == nullptr) return {};
    std::vector<std::string> texts = textsOf(record, *record.defaults());
    if (record.what == What::toggle) texts = {onOrOff(texts.front() == "yes")};
    return texts;
}

/// The values that a variable gives, or none if it is not set or would be refused.
std::vector<std::string> readVariable(const Record& record, const char* text) {
    if (text == nullptr || *text == '\0') return {};
    if (record.what == What::option) {
        const Owned<Values> values(record.type->make());
        return readItems(record, text, *values) ? std::vector<std::string>() : textsOf(record, *values);
    }
    int count = 0;
    if (readOccurrences(record, text, count)) return {};
    return {record.what == What::count ? std::to_string(count) : onOrOff(count > 0)};
}

std::vector<std::string> excludedBy(const Table& table, unsigned index) {
    std::vector<std::string> names;
    for (const RuleGroup& group : table.groups) {
        const std::vector<unsigned>& members = group.members;
        if (std::find(members.begin(), members.end(), index) == members.end()) continue;
        for (const unsigned member : members) {
            if (member != index) names.emplace_back(table.records[member].firstName());
        }
    }
    return names;
}

void describeDetails(const Table& table, const Record& record, const Environment& environment,
                     OptionInfo& info) {
    const Details& details = *record.details;
    info.choices = record.choiceTexts();
    if (!record.isSecret) info.defaults = defaultsOf(record);
    if (details.limits.low) info.lowest = record.shownValue(*details.limits.low, 0);
    if (details.limits.high) info.highest = record.shownValue(*details.limits.high, 0);
    if (details.implicit) info.implicit = record.shownValue(*details.implicit, 0);
    info.variable = details.environment;
    const bool isRead = !info.variable.empty() && !record.isSecret;
    if (isRead) info.fromVariable = readVariable(record, environment.find(info.variable));
    for (const AnyKey needed : details.needs)
        info.needs.emplace_back(table.ownerOf(needed)->records[needed.index].firstName());
    info.instead = details.instead;
}

}  // namespace

OptionInfo infoOf(const Table& table, unsigned index, const Environment& environment) {
    const Record& record = table.records[index];
    OptionInfo info;
    info.kind = kindOf(record);
    info.names = record.allNames();
    info.forms = formsOf(record, info.names);
    if (record.hasValue()) info.metavar = record.metavar();
    info.description = record.description;
    if (!record.isBuiltIn()) info.group = record.group;
    info.separator = record.separator;
    info.takesRest = record.takesRest;
    info.atLeast = record.takesRest ? record.atLeast : record.what == What::positional ? 1 : 0;
    if (record.isOptional || record.defaults() != nullptr) info.atLeast = 0;
    info.isRequired = record.isRequired || info.atLeast > 0;
    info.isRepeated = record.isRepeated || record.separator != '\0' || record.what == What::count;
    info.isHidden = record.isHidden;
    info.isDeprecated = record.isDeprecated;
    info.isGlobal = record.isGlobal;
    info.isOnlyTyped = record.isOnlyTyped;
    info.isSecret = record.isSecret;
    info.isBuiltIn = record.isBuiltIn();
    info.excludes = excludedBy(table, index);
    if (record.details) describeDetails(table, record, environment, info);
    return info;
}

namespace {

/// A value that may come from anywhere.
std::string shownItem(const std::string& value) {
    const bool isPlain = !value.empty() && value.find(' ') == std::string::npos;
    return isPlain ? shown(value) : inQuotes(value);
}

std::string shownItems(const std::vector<std::string>& values, std::string_view separator) {
    std::vector<std::string> items;
    for (const std::string& value : values)
        items.push_back(shownItem(value));
    return listed(items, separator);
}

/// "--quality, IMAGE": the table's own declarations, or an outer one's.
std::string shownNames(const Table& table, const std::vector<std::string>& names) {
    std::vector<std::string> all;
    for (const std::string& name : names) {
        const Table* owner = &table;
        while (owner->findDeclared(name) == nullptr)
            owner = owner->outer;
        all.push_back(owner->records[owner->findDeclared(name)->index].shownName());
    }
    return listed(all, ", ");
}

std::string rangeOf(const OptionInfo& info) {
    if (info.lowest.empty() && info.highest.empty()) return {};
    if (info.highest.empty()) return "at least " + shownItem(info.lowest);
    if (info.lowest.empty()) return "at most " + shownItem(info.highest);
    return joined({shownItem(info.lowest), " to ", shownItem(info.highest)});
}

std::string defaultOf(const OptionInfo& info) {
    const std::string separator = info.separator != '\0' ? std::string(1, info.separator) : ", ";
    if (!info.fromVariable.empty()) {
        return joined({"default: ", shownItems(info.fromVariable, separator), ", from ", info.variable});
    }
    const bool isOff =
        info.kind == OptionInfo::Kind::toggle && info.defaults == std::vector<std::string>{"off"};
    return info.defaults.empty() || isOff ? std::string()
                                          : "default: " + shownItems(info.defaults, separator);
}

std::vector<std::string> notesOf(const Table& table, const OptionInfo& info) {
    std::vector<std::string> notes;
    const auto add = [&notes](std::string_view title, const std::string& text) {
        if (!text.empty()) notes.push_back(std::string(title) + text);
    };
    const bool areChoicesInMetavar = info.metavar == listed(info.choices, "|");
    if (info.isDeprecated)
        notes.push_back("deprecated" + (info.instead.empty() ? "" : ": " + shown(info.instead)));
    if (!areChoicesInMetavar) add("one of: ", shownItems(info.choices, ", "));
    add("", rangeOf(info));
    if (info.isPositional() && info.atLeast > 1) notes.push_back("at least " + std::to_string(info.atLeast));
    if (info.isRequired && !info.isPositional()) notes.emplace_back("required");
    if (info.isRepeated) notes.emplace_back("can be repeated");
    if (!info.implicit.empty()) notes.push_back("alone: " + shownItem(info.implicit));
    add("", defaultOf(info));
    if (info.fromVariable.empty()) add("environment: ", info.variable);
    add("needs ", shownNames(table, info.needs));
    add("not with ", shownNames(table, info.excludes));
    return notes;
}

/// What stands behind the last form.
std::string valueOf(const OptionInfo& info) {
    if (info.isPositional()) return info.takesRest ? "..." : "";
    if (!info.hasValue()) return {};
    std::string value = info.metavar;
    if (info.separator != '\0') value += escaped({&info.separator, 1}) + "...";
    return info.implicit.empty() ? " " + value : "[=" + value + "]";
}

HelpEntry entryOf(const Table& table, const OptionInfo& info) {
    return {info.forms, valueOf(info), info.description, notesOf(table, info)};
}

/// "IMAGE", "[IMAGE]", "IMAGE...", "[IMAGE...]".
std::string positionalUsage(const OptionInfo& info) {
    const std::string text = info.metavar + valueOf(info);
    return info.atLeast > 0 ? text : "[" + text + "]";
}

std::string optionUsage(const OptionInfo& info) {
    const std::string& form = info.forms.back();
    return (info.kind == OptionInfo::Kind::toggle ? hyphened(info.names.back()) : form) + valueOf(info);
}

/// The help of one parser, put together.
class PageMaker {
public:
    PageMaker(const Table& shown, bool all, const Environment& given)
        : table(shown), showsAll(all), environment(given) {}

    HelpPage make() {
        page.program = programOf(table);
        page.description = table.description;
        page.epilogue = table.epilogue;
        addUsage();
        addPositionals();
        addOptions();
        addGlobals();
        addCommands();
        return std::move(page);
    }

private:
    template <class Each>
    void forEach(const Table& owner, Each each) const {
        for (unsigned i = 0; i < owner.records.size(); ++i)
            each(infoOf(owner, i, environment));
    }

    bool isShown(const OptionInfo& info) const { return showsAll || (!info.isHidden && !info.isDeprecated); }

    /// "nctl --store PATH add": an outer parser's required options stand in front of the command.
    std::string programOf(const Table& command) const {
        if (!command.isCommand()) return command.names;
        std::string program = programOf(*command.outer);
        forEach(*command.outer, [&program](const OptionInfo& info) {
            if (info.isRequired) program += " " + optionUsage(info);
        });
        return joined({program, " ", command.firstName()});
    }

    void addUsage() {
        std::vector<std::string> positionals;
        std::vector<std::string> required;
        bool hasOptional = false;
        forEach(table, [&](const OptionInfo& info) {
            if (isAmongChoices(info)) return;
            if (info.isPositional()) {
                positionals.push_back(positionalUsage(info));
            } else if (info.isRequired) {
                required.push_back(optionUsage(info));
            } else {
                hasOptional = hasOptional || isShown(info);
            }
        });
        if (hasOptional) page.usage.emplace_back("[OPTION...]");
        addAll(required);
        addChoices();
        addAll(positionals);
        if (!table.commands.empty()) addAll({"COMMAND", "[ARGUMENT...]"});
    }

    void addAll(const std::vector<std::string>& words) {
        page.usage.insert(page.usage.end(), words.begin(), words.end());
    }

    /// Whether it is an argument, and one of those of which one has to be given.
    bool isAmongChoices(const OptionInfo& info) const {
        if (!info.isPositional()) return false;
        return std::any_of(table.groups.begin(), table.groups.end(), [&](const RuleGroup& group) {
            return group.needsOne &&
                   std::any_of(group.members.begin(), group.members.end(), [&](unsigned member) {
                       return table.records[member].firstName() == info.names.front();
                   });
        });
    }

    /// "{--from DATE | --all}" where one of them has to be given.
    void addChoices() {
        for (const RuleGroup& group : table.groups) {
            if (!group.needsOne) continue;
            std::vector<std::string> members;
            for (const unsigned member : group.members) {
                const OptionInfo info = infoOf(table, member, environment);
                if (isShown(info)) members.push_back(optionUsage(info));
            }
            page.usage.push_back("{" + listed(members, " | ") + "}");
        }
    }

    void addPositionals() {
        HelpSection section = {HelpSection::Kind::arguments, "Arguments", {}};
        forEach(table, [&](const OptionInfo& info) {
            const bool saysMore = !info.description.empty() || !notesOf(table, info).empty();
            if (info.isPositional() && isShown(info) && saysMore)
                section.entries.push_back(entryOf(table, info));
        });
        add(std::move(section));
    }

    void add(HelpSection section) {
        if (!section.entries.empty()) page.sections.push_back(std::move(section));
    }

    /// Groups in the order in which they first occur. Those without come first; --help and the like at their end, or
    /// else last.
    void addOptions() {
        HelpSection own = {HelpSection::Kind::options, "Options", {}};
        std::vector<HelpSection> groups;
        forEach(table, [&](const OptionInfo& info) {
            if (info.isPositional() || !isShown(info)) return;
            const bool isAmongOthers = info.isBuiltIn && own.entries.empty() && !groups.empty();
            const std::string title = isAmongOthers ? "Other options" : info.group;
            HelpSection& section = title.empty() ? own : sectionOf(groups, title);
            section.entries.push_back(entryOf(table, info));
        });
        add(std::move(own));
        for (HelpSection& group : groups)
            add(std::move(group));
    }

    static HelpSection& sectionOf(std::vector<HelpSection>& sections, const std::string& title) {
        for (HelpSection& section : sections) {
            if (section.title == title) return section;
        }
        sections.push_back({HelpSection::Kind::options, title, {}});
        return sections.back();
    }

    void addGlobals() {
        HelpSection section = {HelpSection::Kind::globalOptions, "Global options", {}};
        for (const Table* outer = table.outer; outer != nullptr; outer = outer->outer) {
            forEach(*outer, [&](const OptionInfo& info) {
                if (info.isGlobal && isShown(info)) section.entries.push_back(entryOf(*outer, info));
            });
        }
        add(std::move(section));
    }

    void addCommands() {
        HelpSection section = {HelpSection::Kind::commands, "Commands", {}};
        for (const std::unique_ptr<Table>& command : table.commands) {
            const std::string& about = command->description;
            section.entries.push_back(
                {piecesOf(command->names, ','), "", about.substr(0, about.find('\n')), {}});
        }
        add(std::move(section));
    }

    const Table& table;
    bool showsAll;
    const Environment& environment;
    HelpPage page;
};

}  // namespace

HelpPage helpPage(const Table& table, bool showsAll, const Environment& environment) {
    return PageMaker(table, showsAll, environment).make();
}

void sealWithOuter(Table& table) {
    if (table.outer != nullptr) sealWithOuter(*table.outer);
    table.seal();
}

}  // namespace detail

std::string Parser::help() const { return help(HelpStyle()); }

std::string Parser::help(const HelpStyle& style) const {
    return detail::terminalHelp(page(style), style.columns, style.hasColours);
}

HelpPage Parser::page(const HelpStyle& style) const {
    detail::sealWithOuter(*table);
    return detail::helpPage(*table, style.showsAll, detail::GivenEnvironment(style.environment));
}

std::vector<OptionInfo> Parser::options(const std::vector<Variable>& environment) const {
    detail::sealWithOuter(*table);
    const detail::GivenEnvironment given(environment);
    std::vector<OptionInfo> all;
    for (unsigned i = 0; i < table->records.size(); ++i)
        all.push_back(detail::infoOf(*table, i, given));
    return all;
}

}  // namespace vorn_3_1::host
