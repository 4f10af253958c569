// What one would write by hand for speed alone: a hash table of names and from_chars; a sorted table when
// names may be shortened. No messages, no checks beyond the need, nothing kept but the last.
#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>
#include <unordered_map>

#include "peer.h"

namespace bench {
namespace {

struct HandSlot {
    bool onOff = false;
    int integer = 0;
    double number = 0;
    std::string_view text;
};

template <class Number>
bool readNumber(std::string_view text, Number& number) {
    return std::from_chars(text.data(), text.data() + text.size(), number).ec == std::errc();
}

class HandPeer : public Peer {
public:
    HandPeer(const std::vector<OptionSpec>& registered, Form form)
        : options(registered), slots(registered.size()), shortened(form != Form::full) {
        for (std::size_t index = 0; index < options.size(); ++index) {
            add(options[index].name, index);
            add(options[index].alias, index);
        }
        std::sort(sorted.begin(), sorted.end());
    }

    bool parse(CommandLine& line, Tally* found) override {
        for (std::size_t argument = 1; argument + 1 < line.argv.size(); ++argument) {
            if (!take(std::string_view(line.argv[argument]))) return false;
        }
        if (found != nullptr) *found = tally();
        return true;
    }

private:
    void add(std::string_view name, std::size_t index) {
        if (shortened) {
            sorted.emplace_back(name, index);
        } else {
            hashed.emplace(name, index);
        }
    }

    bool take(std::string_view argument) {
        if (!argument.starts_with("--")) return false;
        argument.remove_prefix(2);
        const std::size_t end = std::min(argument.find('='), argument.size());
        const std::optional<std::size_t> index = find(argument.substr(0, end));
        return index && store(*index, argument.substr(std::min(end + 1, argument.size())));
    }

    std::optional<std::size_t> find(std::string_view name) const {
        return shortened ? findBeginning(name) : findWhole(name);
    }

    std::optional<std::size_t> findWhole(std::string_view name) const {
        const auto entry = hashed.find(name);
        return entry == hashed.end() ? std::nullopt : std::optional(entry->second);
    }

    std::optional<std::size_t> findBeginning(std::string_view name) const {
        const auto entry = std::lower_bound(sorted.begin(), sorted.end(), std::pair(name, std::size_t(0)));
        if (entry == sorted.end() || !entry->first.starts_with(name)) return std::nullopt;
        const bool ambiguous =
            entry->first != name && entry + 1 != sorted.end() && (entry + 1)->first.starts_with(name);
        return ambiguous ? std::nullopt : std::optional(entry->second);
    }

    bool store(std::size_t index, std::string_view value) {
        HandSlot& slot = slots[index];
        if (options[index].kind == Kind::onOff) return slot.onOff = true;
        if (options[index].kind == Kind::integer) return readNumber(value, slot.integer);
        if (options[index].kind == Kind::number) return readNumber(value, slot.number);
        if (options[index].kind == Kind::text || options[index].kind == Kind::list) slot.text = value;
        return true;
    }

    Tally tally() const {
        std::vector<Slot> plain;
        for (const HandSlot& slot : slots) {
            plain.push_back({slot.onOff, slot.integer, slot.number, std::string(slot.text)});
        }
        return tallyOf(options, plain);
    }

    const std::vector<OptionSpec>& options;
    std::vector<HandSlot> slots;
    bool shortened;
    std::unordered_map<std::string_view, std::size_t> hashed;
    std::vector<std::pair<std::string_view, std::size_t>> sorted;
};

}  // namespace

const bool keepsAllValues = false;

std::unique_ptr<Peer> makePeer(const std::vector<OptionSpec>& options, Form form) {
    return std::make_unique<HandPeer>(options, form);
}

}  // namespace bench
