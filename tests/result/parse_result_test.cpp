// A result against a model in which every name has a record of its own.
#include "result/parse_result.h"

#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <map>
#include <random>
#include <tuple>
#include <utility>

#include "base/position_counter.h"
#include "options/registered_option_storage.h"

namespace vorn_3_1::internal {

using namespace tamsu2;

namespace {

using Answer = std::tuple<int, std::string, std::string>;  // position, text, typed value

const Answer miss{INT_MAX, "(null)", "(none)"};

Answer answerOf(const Value& value) {
    EXPECT_EQ(value.status, value.position == INT_MAX ? 1 : 0);
    const char* typed = value.value.asString();
    return {value.position, value.text == nullptr ? "(null)" : value.text,
            typed == nullptr ? "(none)" : typed};
}

class Model {
public:
    void store(const OptionDescription& option, const OptionData& data) {
        const bool isFirst = entries.count(option.firstName()) == 0;
        option.eachName([&](const RegisteredName& name) {
            Entry& entry = entries[name.key()];
            if (isFirst) entry = {};
            entry.occurrences.push_back(data.position);
            for (const ValueRecord& record : data.values)
                entry.values.emplace_back(record.position, record.text, record.value.asString());
            if (current != &entry) return;
            value = std::min(value, entry.values.size());  // an iteration over what is replaced
            occurrence = std::min(occurrence, entry.occurrences.size());
        });
    }

    void applyDefault(const OptionDescription& option, unsigned& counter) {
        if (!option.hasDefault() || option.type() == qel_empty) return;
        const char* text = option.defaultValue().asString();
        option.eachName([&](const RegisteredName& name) {
            entries[name.key()].byDefault = {static_cast<int>(counter++), text, text};
        });
    }

    bool present(std::string_view name, int from, int to) {
        const bool found = find(name, from, to);
        if (found && isDefaultedOnly()) low = high = INT_MAX;
        return found;
    }

    Answer get(std::string_view name, int from, int to) {
        if (!find(name, from, to)) return miss;
        return isDefaultedOnly() ? current->byDefault : next();
    }

    Answer next() {
        if (current == nullptr) return miss;
        if (isDefaultedOnly()) {
            if (low != INT_MAX || high != INT_MAX) return miss;
            low = 0;
            return current->byDefault;
        }
        if (current->values.empty()) return {nextPosition(), "(null)", "(none)"};
        while (value < current->values.size() && std::get<int>(current->values[value]) < low)
            ++value;
        if (value == current->values.size() || std::get<int>(current->values[value]) > high) return miss;
        return current->values[value++];
    }

    int nextPosition() {
        if (current == nullptr || occurrence == current->occurrences.size()) return INT_MAX;
        return current->occurrences[occurrence++];
    }

private:
    struct Entry {
        std::vector<int> occurrences;
        std::vector<Answer> values;
        Answer byDefault{0, "", "(none)"};
    };

    bool find(std::string_view name, int from, int to) {
        low = from;
        high = to;
        value = occurrence = 0;
        const auto found = entries.find(name);
        current = found == entries.end() ? nullptr : &found->second;
        if (current == nullptr || isDefaultedOnly()) return current != nullptr;
        const std::vector<int>& given = current->occurrences;
        while (occurrence < given.size() && (given[occurrence] < low || given[occurrence] >= high))
            ++occurrence;
        return occurrence < given.size();
    }
    bool isDefaultedOnly() const {
        return current->occurrences.empty() && !std::get<1>(current->byDefault).empty();
    }

    std::map<std::string_view, Entry> entries;
    const Entry* current = nullptr;
    std::size_t value = 0;
    std::size_t occurrence = 0;
    int low = 0;
    int high = 0;
};

constexpr const char* names[] = {"a", "b", "c", "d", "e", "f", "g", ""};

/// Options, a result and its model, for random deeds.
class Twins {
public:
    explicit Twins(unsigned seed) : random(seed) {
        for (const char* list : {"a", "b,c", "d,d", ",e", "f", ""}) {
            builders.push_back(storage.option(list, "", *list == 'f' ? qel_empty : qel_string, ""));
            if (*list == '\0') builders.back()->synonym("c")->synonym("c");
            snapshots.push_back(storage.description(storage.size() - 1));
        }
    }

    void act() {
        const unsigned option = any(storage.size());
        const unsigned deed = any(8);
        const char* name = names[any(std::size(names))];
        history += "; " + std::to_string(deed) + " " + std::to_string(option) + " " + name + ": ";
        if (deed == 0) {
            builders[option]->synonym(name);
        } else if (deed == 1) {
            builders[option]->defaultValue(name);
        } else if (deed == 2) {
            unsigned counter = positionCounter;
            ASSERT_EQ(result.applyDefault(storage), 0);
            for (unsigned i = 0; i < storage.size(); ++i)
                model.applyDefault(storage.description(i), counter);
            ASSERT_EQ(counter, positionCounter) << history;
        } else {
            // Sometimes as the option was earlier, when its parse began: a handler may have shaped it since.
            if (deed != 3) snapshots[option] = storage.description(option);
            store(snapshots[option]);
        }
    }

    /// Goes on with what the last query began, which may be some deeds ago; then asks for the name in some range.
    void compare(const char* name) {
        compareNext();
        const int newest = static_cast<int>(positionCounter);
        const auto bound = [&] { return std::array{0, INT_MAX, newest - static_cast<int>(any(20))}[any(3)]; };
        const int low = bound(), high = bound();
        history += name;
        if (any(2) == 0) {
            ASSERT_EQ(answerOf(result.get(name, low, high)), model.get(name, low, high)) << history;
        } else {
            ASSERT_EQ(result.present(name, low, high), model.present(name, low, high)) << history;
        }
        compareNext();
    }

private:
    unsigned any(std::size_t count) { return static_cast<unsigned>(random() % count); }

    void compareNext() {
        for (unsigned i = any(6); i > 0; --i) {
            ASSERT_EQ(answerOf(result.next("")), model.next()) << history;
            if (any(3) == 0) continue;
            ASSERT_EQ(result.nextPosition(), model.nextPosition()) << history;
        }
    }

    void store(const OptionDescription& option) {
        OptionData data;
        data.position = nextPosition();
        for (unsigned i = any(3); i > 0; --i) {
            const int position = nextPosition();
            const std::string_view text = keeper.keep(std::to_string(position));
            data.values.push_back({text, variant_t(("typed " + std::string(text)).c_str()), position});
        }
        model.store(option, data);
        ASSERT_EQ(result.store(option, data), 0);
    }

    std::mt19937 random;
    Garbage keeper;
    RegisteredOptionStorage storage{&keeper};
    std::vector<IOption*> builders;
    std::vector<OptionDescription> snapshots;
    ParseResult result;
    Model model;
    std::string history;  // deed, option and name; then the names asked for
};

}  // namespace

TEST(ParseResult, answersAsIfEveryNameHadItsOwnRecord) {
    for (unsigned seed = 0; seed < 3000; ++seed) {
        Twins twins(seed);
        for (unsigned step = 0; step < 12 && !HasFailure(); ++step) {
            twins.act();
            for (const char* name : names)
                twins.compare(name);
        }
    }
}

// A process that has drawn every position goes on, but queries from 0 on find no more.
TEST(ParseResult, keepsWhatComesAfterTheLastPositionOutOfUsualRanges) {
    Garbage keeper;
    RegisteredOptionStorage storage(&keeper);
    storage.option("a", "", qel_empty, "");
    ParseResult result;
    const unsigned before = std::exchange(positionCounter, INT_MAX - 1);
    for (int i = 0; i < 3; ++i) {
        OptionData data{nextPosition(), {}};
        result.store(storage.description(0), data);
    }
    positionCounter = before;
    EXPECT_EQ(answerOf(result.get("a", 0, INT_MAX)), Answer(INT_MAX - 1, "(null)", "(none)"));
    EXPECT_EQ(answerOf(result.next("a")), miss);  // INT_MAX, which says that there is none
    EXPECT_FALSE(result.present("a", INT_MAX, INT_MAX));
    EXPECT_EQ(answerOf(result.get("a", INT_MIN, 0)), Answer(INT_MIN, "(null)", "(none)"));
}

}  // namespace vorn_3_1::internal
