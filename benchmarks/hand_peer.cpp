// What one would write by hand for speed alone: a hash table of names and from_chars. No shortened names, no messages, no
// checks beyond the need, nothing kept but the last.
#include <algorithm>
#include <charconv>
#include <string_view>
#include <unordered_map>

#include "peer.h"

using namespace bench;

namespace {

struct Slot {
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
    explicit HandPeer(const Options& registered) : options(registered), slots(registered.size()) {
        for (std::size_t index = 0; index < options.size(); ++index) {
            numbers.emplace(options[index].name, index);
            numbers.emplace(options[index].alias, index);
        }
    }

    bool parse(CommandLine& line) override {
        for (std::size_t argument = 1; argument + 1 < line.argv.size(); ++argument) {
            if (!take(line.argv[argument])) return false;
        }
        return true;
    }

private:
    bool take(std::string_view argument) {
        if (!argument.starts_with("--")) return false;
        argument.remove_prefix(2);
        const std::size_t end = std::min(argument.find('='), argument.size());
        const auto entry = numbers.find(argument.substr(0, end));
        return entry != numbers.end() &&
               store(entry->second, argument.substr(std::min(end + 1, argument.size())));
    }

    bool store(std::size_t index, std::string_view value) {
        Slot& slot = slots[index];
        if (options[index].kind == Kind::onOff) return slot.onOff = true;
        if (options[index].kind == Kind::integer) return readNumber(value, slot.integer);
        if (options[index].kind == Kind::number) return readNumber(value, slot.number);
        slot.text = value;
        return true;
    }

    const Options& options;
    std::vector<Slot> slots;
    std::unordered_map<std::string_view, std::size_t> numbers;
};

}  // namespace

std::unique_ptr<Peer> bench::makePeer(const Options& options, Form) {
    return std::make_unique<HandPeer>(options);
}
