// The object behind IParseResult: what was given, and what was not given but has a default.
//
// Parses fill it: applyDefault and store, and addArgument for what follows "--" (parse_result.cpp). Hosts ask it
// (result_queries.cpp). With an option "level,l" whose default is 1, "--level=5 --lev=7,8" leaves
//
//     entries          contents, shared by both
//     "level"  ---+--> history   occurrences  3        5
//     "l"      ---+              values       4 "5"    6 "7"    7 "8"
//                      default   "1", at position 1 for "level" and 2 for "l"
//
// where the numbers are positions. Entries, contents, texts and values live as long as the result: nothing is given
// back before destroy.
#ifndef VORN_RESULT_PARSE_RESULT_H
#define VORN_RESULT_PARSE_RESULT_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "result/chain.h"
#include "result/result_collector.h"
#include "text/garbage.h"
#include "text/pool.h"
#include "text/text_arena.h"
#include "text/text_table.h"
#include "vorn/result.h"

namespace vorn_3_1::internal {

class RegisteredOptionStorage;
struct RegisteredName;

/// Independent of the parser: it keeps copies of names and texts.
///
/// By its contract every name of an option has contents of its own. Nearly always those are equal but for the
/// positions of their defaults, so the names share them, and an occurrence is stored once instead of once for each
/// name. A name gets contents of its own only when they part from the others':
///
///   - a synonym was added after the option had been stored: it has only what came later;
///   - two options have the name as a synonym: it has what was given to either;
///   - a name stands twice among the names of its option: it is appended to twice.
class ParseResult final : public IParseResult, public IResultCollector {
public:
    ParseResult() = default;
    ParseResult(const ParseResult&) = delete;
    ParseResult& operator=(const ParseResult&) = delete;

    void destroy() override;
    bool present(const char* name, int low, int high) override;
    Value get(const char* name, int low, int high) override;
    Value next(const char* name) override;
    int nextPosition() override;
    int getFirstArgument(const char** out) override;
    int getNextArgument(const char** out) override;

    int store(const OptionDescription& option, OptionData& data) override;

    /// Records the default of every option that has one, under each of its names, and draws a position for
    /// each name. Returns 0. May throw std::bad_alloc; what was recorded before stays.
    int applyDefault(const RegisteredOptionStorage& storage);

    /// Keeps an argument that followed "--".
    void addArgument(std::string_view argument, std::int32_t position);

private:
    struct Occurrence {
        std::int32_t position;
        Occurrence* next;
    };
    // In the order that leaves no gaps: there is one for every value.
    struct StoredValue {
        const char* text;
        tamsu2::variant_t value;  // empty where the text itself is the value
        StoredValue* next;
        std::int32_t position;
        bool isKept;  // by garbage; until a host asks for the text, it is only in texts
    };
    // All that was given, in the order in which it was stored.
    struct History {
        Chain<Occurrence> occurrences;
        Chain<StoredValue> values;

        void append(const History& later) {
            occurrences.append(later.occurrences);
            values.append(later.values);
        }
    };
    struct Contents {
        // The list of names whose entries, all of them and no others, share these contents. It lets store append
        // without looking at any name but the first. 0 when they are not shared just so.
        std::uint64_t nameListId = 0;
        History history;
        tamsu2::variant_t defaultVariant;
        const char* defaultText = "";  // kept by garbage
        unsigned sharers = 0;          // how many entries share them

        // An empty default text counts as no default: kept on purpose.
        bool isDefaultOnly() const { return history.occurrences.empty() && *defaultText != '\0'; }
    };
    struct Entry {
        explicit Entry(std::string_view name)
            : text(name.data()), length(static_cast<std::uint32_t>(name.size())) {}

        const char* text;              // the name, kept by texts
        Contents* contents = nullptr;  // null: made, but nothing was stored yet
        std::uint32_t length;
        std::int32_t defaultPosition = 0;
    };
    // An entry as the table sees it.
    struct TableEntry {
        std::string_view key() const { return {entry->text, entry->length}; }

        Entry* entry = nullptr;
    };
    struct Argument {
        const char* text;  // kept by garbage
        std::int32_t position;
    };

    // Storing.
    using Entries = std::vector<Entry*>;
    Entry* findEntry(const RegisteredName& name);
    const Entries& entriesOf(const OptionDescription& option);
    void storeUnderEachName(const OptionDescription& option, OptionData& data);
    void storeApart(const Entries& list, OptionData& data);
    void recordDefault(const OptionDescription& option);
    History prepare(OptionData& data);
    History copyOf(const History& source);
    Contents& ownContents(Entry& entry);
    void setContents(Entry& entry, Contents& now) noexcept;
    void share(const Entries& list, Contents& shared, std::uint64_t nameListId) noexcept;
    static bool areDistinct(const Entries& list);
    static Contents* contentsSharedBy(const Entries& list);

    // The positions that a query asks for: an occurrence from `low` to below `high`, a value from `low` to `high`.
    struct Range {
        std::int32_t low = 0;
        std::int32_t high = INT32_MAX;

        bool operator==(const Range&) const = default;
    };

    // What a get or present has begun, and next and nextPosition continue.
    struct Iteration {
        const Entry* entry = nullptr;  // null: the name was not found
        Range range;
        Chain<Occurrence>::Cursor occurrence;  // the next one to deliver
        Chain<StoredValue>::Cursor value;      // the next one to deliver

        // Of a name that has only a default, next delivers that default once after present, and never after get,
        // which has delivered it. The range tells the two apart, since it means nothing to a default: present
        // leaves an empty one at the end of all positions. So a get with just this range is followed by the
        // default once more: kept on purpose.
        bool isDefaultDue() const { return range == Range{INT32_MAX, INT32_MAX}; }
        void setDefaultDue(bool isDue) { range = isDue ? Range{INT32_MAX, INT32_MAX} : Range{}; }
    };

    // Asking.
    bool begin(const char* name, Range range);
    Value deliverDefault() const;
    Value deliverNext();
    Value deliverOccurrence();
    Value deliverValue();

    Entries entriesAtHand;  // what entriesOf gave last, kept for its memory only
    Pool<Entry> entries;
    Pool<Contents> contents;
    Pool<Occurrence> occurrences;
    Pool<StoredValue> values;
    TextTable<TableEntry> entriesByName;
    TextArena texts;  // of names and of stored values
    Garbage garbage;  // of what hosts were given
    std::vector<Argument> arguments;

    Iteration iteration;                    // a result has one at a time, whatever the name
    std::size_t argumentCursor = SIZE_MAX;  // of the next argument to deliver
};

}  // namespace vorn_3_1::internal

#endif
