// How the library is asked what names mean, and how it reads. Both are the same parse; only the second has a result.
//
//     ask  --siz --verb --foo     arguments: --siz x --verb x --foo x
//          --siz                  event for "size", which takes the x as its value
//          --verb                 event for "verbose"; the x is positional or unknown, and passed over
//          --foo                  unknown; the x is passed over
//     read --size=5 a.png         events for --size, its value and a.png, numbered 0 and 1 for the reader
//
// `answers` is set while the library is asked, and `listener` while it reads; the events look at these to know which of
// the two goes on. walk.cpp asks, parse.cpp reads.
#include "library.h"

#include <algorithm>
#include <climits>
#include <functional>
#include <iterator>
#include <new>
#include <stdexcept>
#include <utility>

#include "text_parts.h"

namespace vorn_3_1::host::detail {

namespace {

/// Four names, which the library refuses without a word. It returns the same builder for every refusal.
constexpr char refusedNames[] = "a,b,c,d";

/// What a rehearsed name is followed by, so that an option that wants a value finds one.
constexpr char filler[] = "x";

/// Whether the library takes the names in one registration: two, or a third of two characters.
bool fitOneRegistration(std::string_view names) {
    std::size_t count = 0;
    std::size_t sizeOfLast = 0;
    forEachPiece(names, ',', [&](std::string_view name) { ++count, sizeOfLast = name.size(); });
    return count < 3 || (count == 3 && sizeOfLast <= 2);
}

/// The names in the library's text "Ambiguous option 'NAME' in argument: 'TYPED', could be: 'one', 'two'", where NAME is
/// TYPED without its hyphens. No name holds a comma, so that the cut is certain.
std::vector<std::string> candidatesIn(std::string_view text, std::string_view typed) {
    constexpr std::string_view front = "Ambiguous option '";
    constexpr std::string_view middle = "' in argument: '";
    constexpr std::string_view back = "', could be: '";
    constexpr std::string_view between = "', '";
    const std::size_t hyphens = typed.substr(0, 2) == "--" ? 2 : 1;
    if (text.empty()) throw std::bad_alloc();  // the library found no memory for it
    text.remove_prefix(front.size() + middle.size() + back.size() + 2 * typed.size() - hyphens);
    text.remove_suffix(1);
    std::vector<std::string> names;
    for (std::size_t end = text.find(between); end != std::string_view::npos; end = text.find(between)) {
        names.emplace_back(text.substr(0, end));
        text.remove_prefix(end + between.size());
    }
    names.emplace_back(text);
    return names;
}

tamsu2::qel_variant_type_t libraryType(What what) {
    if (what == What::toggle) return tamsu2::qel_bool;
    return what == What::option ? tamsu2::qel_string : tamsu2::qel_empty;
}

/// While it lives, the library's events are for this one.
template <class T>
class Hearing {
public:
    Hearing(T*& place, T& hearer) : heard(place) { place = &hearer; }
    Hearing(const Hearing&) = delete;
    Hearing& operator=(const Hearing&) = delete;
    ~Hearing() { heard = nullptr; }

private:
    T*& heard;
};

}  // namespace

Library::Library(Table& declared, Of what) : table(declared), content(what) {
    IParser* made = nullptr;
    // Whatever begins with '-' and names no option is a mistake, or the companion's to find out.
    if (createParser(&made, unknownIsError | hyphenNotPositional) != 0) throw std::bad_alloc();
    parser.reset(made);
    if (!parser->addHandler(this)) throw std::bad_alloc();
    refused = parser->option(refusedNames, "", tamsu2::qel_empty, "");
    if (content == Of::commands) {
        for (const std::unique_ptr<Table>& command : table.commands)
            registerCommand(*command);
    } else {
        for (const Record& record : table.records)
            registerOption(record);
        for (const Table* outer = table.outer; outer != nullptr; outer = outer->outer) {
            for (const Record& record : outer->records) {
                if (record.isGlobal) registerOption(record);
            }
        }
        if (table.hasPositionals())
            registerNames(positionalName, nullptr, tamsu2::qel_string).positional()->tokenize('\0');
    }
    verifySynonyms();
}

Library::~Library() = default;

void Library::registerOption(const Record& record) {
    if (!record.isOption()) return;
    const std::vector<std::string>* further = record.details ? &record.details->synonyms : nullptr;
    registerNames(record.names.data(), further, libraryType(record.what)).tokenize('\0');
}

void Library::registerCommand(const Table& command) {
    registerNames(command.names.c_str(), nullptr, tamsu2::qel_empty);
}

/// Names that do not fit into one registration become synonyms.
IOption& Library::registerNames(const char* names, const std::vector<std::string>* further,
                                tamsu2::qel_variant_type_t type) {
    std::vector<std::string> added;
    if (further != nullptr) added = *further;
    std::string shortened;
    if (!fitOneRegistration(names)) {
        std::vector<std::string> all = piecesOf(names, ',');
        shortened = std::move(all.front());
        added.insert(added.begin(), std::next(all.begin()), all.end());
        names = shortened.c_str();
    }
    IOption* option = parser->option(names, "", type, "");
    // All else that it refuses has been refused before.
    if (option == refused) throw std::bad_alloc();
    for (const std::string& name : added) {
        option->synonym(name.c_str());
        synonyms.push_back("--" + name);
    }
    return *option;
}

/// A synonym that finds no memory is left out without a word.
void Library::verifySynonyms() {
    if (synonyms.empty()) return;
    for (const Meaning& meaning : ask(synonyms)) {
        if (meaning.kind != Meaning::Kind::found) throw std::bad_alloc();
    }
    synonyms.clear();
}

/// Each name is followed by a filler: an option that takes a value takes that, and otherwise it is positional or
/// unknown. An ambiguous name ends the rehearsal, which goes on behind it.
std::vector<Meaning> Library::ask(const std::vector<std::string>& names) {
    refuseWhileInUse();
    std::vector<Meaning> meanings(names.size());
    std::vector<char*> argv(2 * names.size() + 1);
    for (std::size_t i = 0; i < names.size(); ++i) {
        argv[2 * i + 1] = const_cast<char*>(names[i].c_str());  // the library only reads
        argv[2 * i + 2] = const_cast<char*>(filler);
    }
    const Hearing<std::vector<Meaning>> hearing(answers, meanings);
    for (answered = 0; answered < names.size();) {
        char** rest = argv.data() + 2 * answered;
        const int code = parser->parseArgsVector(static_cast<int>(argv.size() - 2 * answered), rest, nullptr);
        if (code == 0) break;
        if (code != 2) throw std::bad_alloc();
        Meaning& meaning = meanings[answered];
        meaning.kind = Meaning::Kind::ambiguous;
        meaning.libraryText = parser->getErrorDesc();
        meaning.candidates = candidatesIn(meaning.libraryText, names[answered]);
        ++answered;
    }
    return meanings;
}

void Library::refuseWhileInUse() const {
    if (listener == nullptr && answers == nullptr) return;
    throw std::logic_error("vorn: the parser is parsing already; a check must not ask the same parser");
}

void Library::read(const std::vector<LibraryArgument>& arguments, Reader& reader, bool isLogged) {
    refuseWhileInUse();
    std::vector<char*> argv;
    argv.reserve(arguments.size() + 3);
    argv.push_back(const_cast<char*>(""));
    if (isLogged) argv.push_back(const_cast<char*>(logSwitch.data()));
    bool isBehind = false;
    for (const LibraryArgument& argument : arguments) {
        if (argument.isPassedThrough && !isBehind) argv.push_back(const_cast<char*>("--"));
        isBehind = argument.isPassedThrough;
        argv.push_back(const_cast<char*>(argument.text.c_str()));
    }
    IParseResult* made = nullptr;
    if (parser->createResult(&made) != 0) throw std::bad_alloc();
    const std::unique_ptr<IParseResult, Destroy> result(made);
    const Hearing<Reader> hearing(listener, reader);
    heard.clear();
    heard.reserve(arguments.size());
    thrown = nullptr;
    const int code = parser->parseArgsVector(static_cast<int>(argv.size()), argv.data(), made);
    if (code == 0 && !thrown) readOccurrences(*made);
    if (thrown) std::rethrow_exception(std::exchange(thrown, nullptr));
    if (code > 2) throw std::bad_alloc();
    if (code != 0) throw std::logic_error(std::string("vorn: ") + parser->getErrorDesc());
}

/// The library raises no event with the position of an occurrence, so those without a value are asked for.
void Library::readOccurrences(IParseResult& result) {
    std::vector<std::size_t> order;
    for (std::size_t i = 0; i < heard.size(); ++i)
        order.push_back(i);
    const auto hasValue = [](const Heard& one) { return one.hasValue; };
    if (std::all_of(heard.begin(), heard.end(), hasValue)) return;
    std::stable_sort(order.begin(), order.end(), [this](std::size_t left, std::size_t right) {
        return std::less<const char*>()(heard[left].name, heard[right].name);
    });
    const char* current = nullptr;
    for (const std::size_t i : order) {
        const bool isNext = heard[i].name != current;
        if (isNext && !result.present(heard[i].name, 0, INT_MAX)) throw std::bad_alloc();
        current = heard[i].name;
        const int position = result.nextPosition();
        if (!heard[i].hasValue) listener->occurrence(i, position);
    }
}

void Library::noteMeaning(const char* name) {
    Meaning& meaning = (*answers)[answered++];
    if (content == Of::commands) {
        if (const NameMeaning* found = table.findCommand(name)) {
            meaning.kind = Meaning::Kind::found;
            meaning.index = found->index;
        }
        return;
    }
    for (Table* owner = &table; owner != nullptr; owner = owner->outer) {
        const NameMeaning* found = owner->find(name);
        if (found == nullptr || (owner != &table && !owner->records[found->index].isGlobal)) continue;
        meaning.kind = Meaning::Kind::found;
        meaning.table = owner;
        meaning.index = found->index;
        return;
    }
}

bool Library::onOptionParse(const char* name) {
    if (answers != nullptr) {
        if (std::string_view(name) != positionalName) noteMeaning(name);
        return true;
    }
    if (thrown) return true;
    try {
        heard.push_back({name, false});
        listener->option(heard.size() - 1);
    } catch (...) {
        thrown = std::current_exception();
    }
    return true;
}

/// What a reader throws is kept: the library would make a code of it, or let what is no std::exception through its own
/// frames.
bool Library::onValueParse(const char* name, const Value& value) {
    if (answers != nullptr) {
        const bool isFiller = std::string_view(name) == positionalName;
        if (!isFiller && (*answers)[answered - 1].kind == Meaning::Kind::found) {
            Meaning& meaning = (*answers)[answered - 1];
            meaning.isOff =
                meaning.table != nullptr && meaning.record().what == What::toggle && value.text[0] == '0';
        }
        return true;
    }
    if (thrown) return false;
    try {
        heard.back().hasValue = true;
        listener->value(heard.size() - 1, value.text, value.position);
    } catch (...) {
        thrown = std::current_exception();
    }
    return !thrown;
}

/// The unknown name, or the filler behind a name that takes no value.
bool Library::onUknownArgument(const char* argument) {
    if (answers == nullptr) return true;
    if (argument[0] == '-') ++answered;
    return false;
}

}  // namespace vorn_3_1::host::detail
