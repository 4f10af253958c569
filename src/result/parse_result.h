// The object behind IParseResult: what was given, and what was not given but has a default.
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
/// By its contract every name of an option has a record of its own. Nearly always those records are equal but
/// for the positions of their defaults, so the names of an option share one Record, and a name gets its own
/// only when its contents part from the others': a synonym that came late, a name that two options share, a
/// name that stands twice among an option's names.
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
    struct Given {
        Chain<Occurrence> occurrences;
        Chain<StoredValue> values;

        void append(const Given& other) {
            occurrences.append(other.occurrences);
            values.append(other.values);
        }
    };
    struct Record {
        std::uint64_t nameListId = 0;  // the list whose names, all and only, share it; 0 when unknown
        Given given;
        tamsu2::variant_t defaultVariant;
        const char* defaultText = "";  // kept by garbage
        unsigned users = 0;            // how many names share it
    };
    struct Name {
        explicit Name(std::string_view ownText)
            : text(ownText.data()), length(static_cast<std::uint32_t>(ownText.size())) {}

        const char* text;          // kept by texts
        Record* record = nullptr;  // null: not entered
        std::uint32_t length;
        std::int32_t defaultPosition = 0;
    };
    struct NameEntry {
        std::string_view key() const { return {name->text, name->length}; }

        Name* name = nullptr;
    };
    struct Argument {
        const char* text;  // kept by garbage
        std::int32_t position;
    };

    // Store.
    using Names = std::vector<Name*>;
    Name* find(const RegisteredName& name);
    const Names& namesOf(const OptionDescription& option);
    void storeByName(const OptionDescription& option, OptionData& data);
    void storeApart(const Names& list, OptionData& data);
    void recordDefault(const OptionDescription& option);
    Given prepare(OptionData& data);
    Given prepareCopy(const Given& source);
    Record& ownRecord(Name& name);
    void setRecord(Name& name, Record& record) noexcept;
    void share(const Names& list, Record& record, std::uint64_t nameListId) noexcept;
    static bool areDistinct(const Names& list);
    static Record* commonRecord(const Names& list);

    // Queries: 0 found, 1 not.
    int find(const char* name, const char** text, tamsu2::variant_t& value, int low, int high,
             std::int32_t& position);
    int advance(const char** text, tamsu2::variant_t& value, std::int32_t& position);
    void deliverDefault(const char** text, tamsu2::variant_t& value, std::int32_t& position) const;
    bool isDefaultedOnly() const;
    template <class Query>
    static Value answer(Query query);

    Names namesInHand;  // what namesOf answered last, kept for its memory only
    Pool<Name> names;
    Pool<Record> records;
    Pool<Occurrence> occurrences;
    Pool<StoredValue> values;
    TextTable<NameEntry> options;
    TextArena texts;  // of names and of stored values
    Garbage garbage;
    std::vector<Argument> arguments;

    // The one iteration that a result supports at a time. Unset cursors count as exhausted.
    const Name* currentEntry = nullptr;
    Chain<StoredValue>::Place valueCursor = nullptr;
    Chain<Occurrence>::Place occurrenceCursor = nullptr;
    std::int32_t rangeLow = 0;
    std::int32_t rangeHigh = INT32_MAX;
    std::size_t argumentCursor = SIZE_MAX;
};

}  // namespace vorn_3_1::internal

#endif
