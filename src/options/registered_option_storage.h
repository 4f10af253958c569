// The registry: every option of one parser.
#ifndef VORN_OPTIONS_REGISTERED_OPTION_STORAGE_H
#define VORN_OPTIONS_REGISTERED_OPTION_STORAGE_H

#include <string_view>
#include <vector>

#include "options/option_description.h"
#include "options/option_index.h"
#include "text/garbage.h"
#include "text/pool.h"
#include "text/text_arena.h"
#include "text/text_table.h"

namespace vorn_3_1::internal {

struct OptionGroup {
    std::string_view name;
    std::string_view title;
};

/// Descriptions, names and groups stay as long as the registry, in order of registration.
class RegisteredOptionStorage {
public:
    /// The keeper is handed to every description; not owned.
    explicit RegisteredOptionStorage(Garbage* textKeeper);
    RegisteredOptionStorage(const RegisteredOptionStorage&) = delete;
    RegisteredOptionStorage& operator=(const RegisteredOptionStorage&) = delete;

    /// Registers an option (IParser::option). Never null; a refusal, or a std::exception on the way, gives
    /// the fallback, whose status holds the reason: 1 a bad or clashing list of names, 3 otherwise.
    IOption* option(const char* names, const char* description, tamsu2::qel_variant_type_t type,
                    const char* group);

    const OptionDescription& description(unsigned option) const { return *descriptions[option]; }
    unsigned size() const { return static_cast<unsigned>(descriptions.size()); }
    const std::vector<OptionGroup>& groups() const { return groupList; }
    const OptionIndex& index() const { return derived; }

    /// Finds the first option that answers to one of the names, earlier names first; a switch answers to
    /// its "no-" forms as well. Returns 0 with the index set, or 1.
    int findOption(const std::vector<OptionName>& names, unsigned& option) const;

    /// findOption for one name, so 0 means that the name is taken.
    int isAdded(const OptionName& name, unsigned& option) const;

private:
    struct FiledGroup : TextEntry {
        unsigned index = 0;
    };

    IOption* add(const char* names, const char* description, tamsu2::qel_variant_type_t type,
                 const char* group);
    unsigned fileGroup(std::string_view group);
    std::vector<OptionName> split(std::string_view names);
    int validateName(const std::vector<OptionName>& names) const;
    OptionDescription* append(Registration registration);

    TextArena texts;
    OptionIndex derived;
    Pool<OptionDescription> pool;
    std::vector<OptionDescription*> descriptions;  // by index
    std::vector<OptionGroup> groupList;
    TextTable<FiledGroup> groupsByName;
    Garbage* keeper;
    OptionDescription fallback;
};

}  // namespace vorn_3_1::internal

#endif
