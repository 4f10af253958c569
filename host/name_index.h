// Finds a declaration by one of its full names.
#ifndef VORN_HOST_NAME_INDEX_H
#define VORN_HOST_NAME_INDEX_H

#include <cstddef>
#include <string_view>
#include <vector>

namespace vorn_3_1::host::detail {

/// What a full name stands for.
struct NameMeaning {
    unsigned index;  ///< Of the declaration.
    bool isOff;      ///< The "no-" form of a switch.
};

/// A table of the names that a host has declared; whoever enters one keeps its text. Names only come and go at the end.
/// What users type is never entered, so that a plain hash will do.
///
/// By hand, since it is most of what a declaration costs: with std::pmr::unordered_map, 100 options of two names and
/// ten arguments took 541,000 instructions instead of 516,000.
class NameIndex {
public:
    /// Returns false if the name is there already.
    bool add(std::string_view name, NameMeaning meaning);
    const NameMeaning* find(std::string_view name) const;
    std::size_t size() const { return entries.size(); }
    /// Forgets all names but the first ones.
    void shrink(std::size_t size);

private:
    struct Entry {
        std::string_view name;
        std::size_t hash;
        NameMeaning meaning;
    };

    std::size_t slotFor(std::string_view name, std::size_t hash) const;
    void grow();

    std::vector<Entry> entries;
    std::vector<unsigned> slots;  ///< 0, or the number of an entry from 1 on; at most half of them are taken.
};

}  // namespace vorn_3_1::host::detail

#endif
