// The registry: every option of one parser.
//
// The parser owns it. Hosts fill it through IParser::option; recognisers and results read it through the index; the
// help walks over groups and options:
//
//     storage.option("level,l", "How hard to try.", tamsu2::qel_int, "general:General options")
//
//     descriptions   0: level
//     index          level, l
//     groups         0: "general", titled "General options"
//
// Nothing is ever removed, so numbers and pointers to descriptions stay good.
#ifndef VORN_OPTIONS_REGISTERED_OPTION_STORAGE_H
#define VORN_OPTIONS_REGISTERED_OPTION_STORAGE_H

#include <deque>
#include <string_view>
#include <vector>

#include "options/option_description.h"
#include "options/option_index.h"
#include "text/garbage.h"

namespace vorn_3_1::internal {

/// A part of the help. Options name their group; the title may be empty.
struct OptionGroup {
    std::string_view name;
    std::string_view title;
};

/// Descriptions, names and groups stay as long as the registry, in order of registration.
class RegisteredOptionStorage {
public:
    /// Not owned, and handed to every description.
    explicit RegisteredOptionStorage(Garbage* garbage) : context{{}, {}, garbage} {}
    RegisteredOptionStorage(const RegisteredOptionStorage&) = delete;
    RegisteredOptionStorage& operator=(const RegisteredOptionStorage&) = delete;

    /// Registers an option (IParser::option). Never null; a refusal, or a std::exception on the way, gives
    /// the fallback, whose status holds the reason: 1 a bad or clashing list of names, 3 otherwise.
    IOption* option(const char* names, const char* description, tamsu2::qel_variant_type_t type,
                    const char* group);

    /// By its number: options are counted from 0 in order of registration.
    const OptionDescription& description(unsigned option) const { return descriptions[option]; }
    unsigned size() const { return static_cast<unsigned>(descriptions.size()); }
    const std::vector<OptionGroup>& groups() const { return groupList; }
    const OptionIndex& index() const { return context.index; }

private:
    class NameList;

    IOption* add(const char* names, const char* description, tamsu2::qel_variant_type_t type,
                 const char* group);
    unsigned fileGroup(std::string_view group);
    bool isAcceptable(const NameList& names) const;

    OptionContext context;
    // A deque, since a handler may register options while one is being parsed, and that one must not move.
    std::deque<OptionDescription> descriptions;
    std::vector<OptionGroup> groupList;
    std::vector<unsigned> groupsByName;  // their numbers, in order of their names
    // What a refused registration returns: it has no context, so its builder operations do nothing.
    OptionDescription fallback;
};

}  // namespace vorn_3_1::internal

#endif
