#include "recognisers/decomposed_name.h"

namespace vorn_3_1::internal {

void DecomposedName::append(std::string_view name) {
    for (std::size_t hyphen = name.find('-'); hyphen != std::string_view::npos; hyphen = name.find('-')) {
        list.push_back(name.substr(0, hyphen));
        name.remove_prefix(hyphen + 1);
    }
    list.push_back(name);
}

std::string DecomposedName::getName() const {
    std::string name;
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (i > 0) name += '-';
        name += list[i];
    }
    return name;
}

}  // namespace vorn_3_1::internal
