// The companion's way to the library: what a parser has declared, registered there as texts, switches and options
// without a value. Names are matched there and nowhere else.
#ifndef VORN_HOST_LIBRARY_H
#define VORN_HOST_LIBRARY_H

#include <cstddef>
#include <exception>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "table.h"
#include "vorn/parser.h"
#include "vorn/result.h"

namespace vorn_3_1::host::detail {

/// The option that takes positional arguments. No user can type its name, which has no letter.
inline constexpr char positionalName[] = ".";

/// The hidden first argument that switches the library's log on.
inline constexpr std::string_view logSwitch = "vornoption=vornlogenable=1";

/// What the library says to a typed name.
struct Meaning {
    enum class Kind { unknown, ambiguous, found } kind = Kind::unknown;
    Table* table = nullptr;  ///< The parser's or, for a global option, an outer one's.
    unsigned index = 0;
    bool isOff = false;                   ///< The "no-" form of a switch.
    std::vector<std::string> candidates;  ///< Of an ambiguous one: full names, "no-" forms among them.
    std::string libraryText;

    const Record& record() const { return table->records[index]; }
};

/// One argument as the library is to read it: "--name", "--name=value" or a positional text.
struct LibraryArgument {
    std::string text;
    bool isPassedThrough = false;  ///< Stands behind "--", where there are no positional arguments.
};

/// Who hears what the library reads: for each argument that is not passed through one call of `option`, in order, and
/// if there is a value one call of `value` behind it.
class Reader {
public:
    virtual void option(std::size_t number) = 0;
    virtual void value(std::size_t number, std::string_view text, int position) = 0;
    /// The position of an occurrence without a value, after everything was read.
    virtual void occurrence(std::size_t number, int position) = 0;

protected:
    ~Reader() = default;
};

class Library final : public EventHandler {
public:
    /// Registers the options of the table and the global ones of outer tables, or the commands of the table.
    enum class Of { options, commands };
    Library(Table& declared, Of what);
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    ~Library();

    /// Asks for the meanings of names, each with its hyphens and without a value, by a rehearsal.
    std::vector<Meaning> ask(const std::vector<std::string>& names);

    /// Has the arguments read. What the reader throws passes through.
    void read(const std::vector<LibraryArgument>& arguments, Reader& reader, bool isLogged);

    bool onOptionParse(const char* name) override;
    bool onValueParse(const char* name, const Value& value) override;
    bool onUknownArgument(const char* argument) override;

private:
    struct Destroy {
        template <class T>
        void operator()(T* object) const noexcept {
            object->destroy();
        }
    };

    struct Heard {
        const char* name;  ///< The library keeps it, one pointer for each option.
        bool hasValue;
    };

    void registerOption(const Record& record);
    void registerCommand(const Table& command);
    /// `further` are synonyms, if there are any.
    IOption& registerNames(const char* names, const std::vector<std::string>* further,
                           tamsu2::qel_variant_type_t type);
    void verifySynonyms();
    void refuseWhileInUse() const;
    void noteMeaning(const char* name);
    void readOccurrences(IParseResult& result);

    Table& table;
    Of content;
    std::unique_ptr<IParser, Destroy> parser;
    IOption* refused = nullptr;  ///< What the library returns when it refuses a registration.
    std::vector<std::string> synonyms;
    std::vector<Meaning>* answers = nullptr;  ///< While it is asked.
    Reader* listener = nullptr;               ///< While it reads.
    std::vector<Heard> heard;                 ///< Of each argument so far.
    std::size_t answered = 0;                 ///< Of the names that it is asked.
    std::exception_ptr thrown;
};

}  // namespace vorn_3_1::host::detail

#endif
