// The host's own table of what it has registered.
#ifndef VORN_HOST_REGISTERED_OPTIONS_H
#define VORN_HOST_REGISTERED_OPTIONS_H

#if __cplusplus >= 201703L

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "vorn/host/value_type.h"

namespace vorn_3_1::host {

/// Thrown when an option or a synonym cannot be registered: says which name and why. It tells of a
/// mistake in the host, which the host's first run meets.
class RegistrationError : public std::invalid_argument {
public:
    using std::invalid_argument::invalid_argument;
};

namespace detail {

[[noreturn]] inline void refuse(std::string_view option, std::initializer_list<std::string_view> reason) {
    throw RegistrationError(joined({"vorn: option '", option, "' cannot be registered: ", joined(reason)}));
}

struct Record {
    std::vector<std::string> names;  ///< The first one names the option in every message.
    tamsu2::qel_variant_type_t kind;
    tamsu2::variant_t defaultValue;  ///< Empty when there is none.
    std::vector<tamsu2::variant_t> allowedValues;
};

/// Finds the option behind anything that users may type for a name. A chained hash table in few lines, since a
/// standard map costs every host a fifth of this header's compilation.
class NameIndex {
public:
    const Record* find(std::string_view name) const {
        if (chains.empty()) return nullptr;
        std::size_t entry = chains[std::hash<std::string_view>()(name) % chains.size()];
        while (entry != none && entries[entry].name != name)
            entry = entries[entry].next;
        return entry == none ? nullptr : entries[entry].owner;
    }

    void add(std::string name, const Record& owner) {
        entries.push_back({std::move(name), &owner, none});
        if (entries.size() <= chains.size()) return link(entries.size() - 1);
        chains.assign(2 * chains.size() + 16, none);
        for (std::size_t entry = 0; entry < entries.size(); ++entry)
            link(entry);
    }

private:
    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    struct Entry {
        std::string name;
        const Record* owner;
        std::size_t next;
    };

    void link(std::size_t entry) {
        std::size_t& chain = chains[std::hash<std::string_view>()(entries[entry].name) % chains.size()];
        entries[entry].next = chain;
        chain = entry;
    }

    std::vector<Entry> entries;
    std::vector<std::size_t> chains;  ///< The first entry of each.
};

/// What was registered: the interface can be asked neither for it nor whether it refused something. So
/// whatever the library would refuse is refused here first, and also what no user could type.
class RegisteredOptions {
public:
    /// In order of registration, and at fixed addresses: results hand out texts from here.
    std::vector<std::unique_ptr<Record>> records;
    std::size_t checked = 0;  // the options before it have a default that is allowed

    Record& last() { return *records.back(); }

    void add(const char* names, tamsu2::qel_variant_type_t kind) {
        auto record = std::make_unique<Record>(Record{split(names), kind, {}, {}});
        if (record->names.empty()) refuse(names, {"it has no name"});
        if (record->names.size() > 3) refuse(names, {"it has more than three names"});
        if (record->names.size() == 3 && record->names[2].size() > 2) {
            refuse(names, {"its third name '", record->names[2], "' is longer than two characters"});
        }
        take(names, record->names, *record);
        records.push_back(std::move(record));
    }

    void addSynonym(const char* name) {
        take(last().names.front(), {name}, last());
        last().names.emplace_back(name);
    }

    /// Only the first positional option would ever receive an argument.
    void makePositional() {
        if (positional != nullptr) {
            refuse(last().names.front(), {"'", positional->names.front(), "' is positional already"});
        }
        positional = &last();
    }

    /// Throws for a default that is not among its option's allowed values: the library would take it, and a host
    /// read a value that it has not allowed.
    void checkDefaults() {
        for (; checked < records.size(); ++checked) {
            const Record& option = *records[checked];
            if (option.defaultValue.kind() == tamsu2::qel_empty || option.allowedValues.empty()) continue;
            bool isAllowed = false;
            for (const tamsu2::variant_t& allowed : option.allowedValues)
                isAllowed = isAllowed || allowed == option.defaultValue;
            if (!isAllowed) refuse(option.names.front(), {"its default is not among the allowed values"});
        }
    }

    bool isTaken(std::string_view name) const { return index.find(name) != nullptr; }

    const Record& find(std::string_view name) const {
        const Record* record = index.find(name);
        if (record != nullptr) {
            for (const std::string& own : record->names) {
                if (own == name) return *record;
            }
        }
        const bool isTyped = !name.empty() && name.front() == '-';
        throw std::logic_error(joined({"vorn: no option is named '", name, "'",
                                       isTyped ? " (names are given without their hyphens)" : ""}));
    }

    const Record& find(std::string_view name, tamsu2::qel_variant_type_t kind) const {
        const Record& record = find(name);
        if (record.kind != kind) misread(name, record.kind, kind);
        return record;
    }

private:
    /// Cuts the names as the library does: the character after a ',' is never a separator.
    static std::vector<std::string> split(std::string_view text) {
        std::vector<std::string> names;
        std::size_t start = 0;
        std::size_t cursor = 0;
        for (; cursor < text.size(); ++cursor) {
            if (text[cursor] != ',') continue;
            names.emplace_back(text.substr(start, cursor - start));
            start = ++cursor;
        }
        if (start != cursor) names.emplace_back(text.substr(start));
        return names;
    }

    /// Why nobody could type the name, or null.
    static const char* faultOf(const std::string& name) {
        if (name.empty()) return "is empty";
        if (name.front() == '-') return "begins with '-', which only users type";
        if (name.find_first_of("=,") != std::string::npos) return "holds '=' or ','";
        if (name.find_first_of(" \t\r\n") != std::string::npos) return "holds a blank";
        return nullptr;
    }

    /// Enters all that a user can type for the names: a switch answers to its "no-" forms, too.
    void take(std::string_view option, std::vector<std::string> forms, const Record& record) {
        const std::size_t names = forms.size();
        for (std::size_t i = 0; i < names && record.kind == tamsu2::qel_bool; ++i) {
            if (forms[i].rfind("no-", 0) == 0) {
                refuse(option, {"a switch named '", forms[i], "' could only be switched off"});
            }
            forms.push_back("no-" + forms[i]);
        }
        for (std::size_t i = 0; i < forms.size(); ++i) {
            if (const char* fault = faultOf(forms[i])) refuse(option, {"its name '", forms[i], "' ", fault});
            const Record* owner = index.find(forms[i]);
            for (std::size_t k = 0; k < i && owner == nullptr; ++k) {
                if (forms[k] == forms[i]) owner = &record;
            }
            if (owner != nullptr) {
                refuse(option, {"'", forms[i], "' is taken by option '", owner->names.front(), "'"});
            }
        }
        for (std::string& form : forms)
            index.add(std::move(form), record);
    }

    NameIndex index;
    const Record* positional = nullptr;
};

}  // namespace detail
}  // namespace vorn_3_1::host

#endif  // C++17

#endif
