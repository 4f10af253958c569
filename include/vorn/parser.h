// The parser, its events and its factory.
//
// A host makes a parser, registers its options, parses into a result, and asks the result. Handlers are for hosts that
// want to hear of every option and value while the parse goes on, and to have a say in it.
#ifndef VORN_PARSER_H
#define VORN_PARSER_H

#include "tamsu2/variant.h"
#include "vorn/export.h"
#include "vorn/option.h"
#include "vorn/result.h"
#include "vorn/value.h"

// EventHandler lacks a virtual destructor on purpose.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace vorn_3_1 {

/// Receives what happens during a parse. Slot order is contract, and so is the missing destructor:
/// a virtual one would take slots. A handler is never deleted through this class.
///
/// A handler may add and remove handlers (itself included), register options and query results
/// from inside an event; a removed handler is not called again. Names and arguments stay valid as
/// long as the parser. A std::exception thrown by a handler ends the parse with code 4, or with 3
/// among the arguments after "--".
class EventHandler {
public:
    /// Raised once per occurrence of an option, with its first name, before its values are read; also
    /// when a value then turns out to be invalid. The result is ignored.
    virtual bool onOptionParse(const char* /*name*/) { return true; }

    /// Raised for every value, or list item, that has passed conversion and the allowed values, before
    /// the occurrence is stored; not for options without a value. `value.text` is as typed. False
    /// refuses the value: the parse ends with code 1, and later handlers are not asked.
    virtual bool onValueParse(const char* /*name*/, const Value& /*value*/) { return true; }

    /// Raised for every argument that nothing takes. All handlers are asked; false from any of them
    /// says that it has dealt with the argument, which is then no error under unknownIsError.
    /// (The spelling is part of the interface.)
    virtual bool onUknownArgument(const char* /*argument*/) { return true; }
};

/// Bits of createParser's flags; all other bits have no effect.
enum ParserFlags : int {
    /// An unknown argument fails the parse; otherwise it is dropped.
    unknownIsError = 2,

    /// Arguments after "--" go to the positional option, too.
    positionalAfterTerminator = 4,

    /// An argument that begins with '-' is not positional. This does not hold after "--", nor for the
    /// arguments that positionalRepeat takes.
    hyphenNotPositional = 8,

    /// The first positional argument makes all later ones positional, whatever they look like: options
    /// and "--" included.
    positionalRepeat = 16
};

/// Reads command lines by the options registered on it. Slot order is contract.
///
/// Parse operations return 0 for success; 1 when a handler refused a value; 2 for an invalid value, a
/// misused or ambiguous option, or an unknown one; 3 and 4 after a std::exception. What was stored
/// before a failure stays stored.
///
/// Nothing is thread-safe. All parsers of a process share what registering and parsing draw numbers
/// from, so a process registers options and parses on one thread at a time, whatever the parser.
///
/// A parser is a handler itself, and may be added to another one: it passes every event on to its own
/// handlers, and so may the host by calling the event operations. What a handler throws passes through
/// them, to the parse that raised the event or to the host that did.
class IParser : public EventHandler {
public:
    /// Ends the parser with all its options and every text that it has handed out. Results and
    /// handlers live on.
    virtual void destroy() = 0;

    /// Makes an empty result, which the host owns. Returns 0, or 3 for a null `out` or when memory runs
    /// out, leaving the pointer at `out` untouched.
    virtual int createResult(IParseResult** out) = 0;

    /// Registers an option and returns its builder.
    ///
    /// names   up to three names separated by ','; the first one names the option in every message.
    ///         A third name has at most 2 characters.
    /// type    kind of every value; 0 makes a switch with a "no-" form, 17 an option without value.
    /// group   group name, optionally followed by ':' and the group's title. Options of the group
    ///         "vorn_hidden" show in the hidden help only.
    ///
    /// All texts are copied; null counts as "". Never returns null: a refused registration (too many
    /// names, a third one too long, a name already taken, be it by the "no-" form of a switch) returns a
    /// fallback builder whose calls change no option; for a taken name the list's first name is written
    /// to standard error. The builder belongs to the parser and is valid only until the next option call.
    virtual IOption* option(const char* names, const char* description, tamsu2::qel_variant_type_t type,
                            const char* group) = 0;

    /// Records all defaults in the result, then parses argv[1] to argv[argc - 1]. An argc below 2
    /// parses nothing; a null element gives 3. A null result makes it a rehearsal: values are
    /// converted, validated and announced, and nothing is stored. Running out of memory while
    /// defaults are recorded is the one failure that throws (std::bad_alloc).
    virtual int parseArgsVector(int argc, char** argv, IParseResult* result) = 0;

    /// Parses a text with one argument per line: leading blanks are dropped, lines that begin with ';'
    /// or '#' and empty lines are skipped, and there is no quoting. Records no defaults. Null counts
    /// as "", and a null result makes it a rehearsal.
    virtual int parseStream(const char* text, IParseResult* result) = 0;

    /// Why the last failed parse failed, for people to read; "" before any failure. Never null; valid
    /// as long as the parser. A later success does not clear it. Code 3 leaves it as it was when the
    /// arguments could not be taken, and empties it when a handler threw among those after "--".
    virtual const char* getErrorDesc() = 0;

    /// The help text of every group but "vorn_hidden", or of that group alone. Positional options are not
    /// listed, and of an option without a description at most a heading of 30 characters or more. Never
    /// null; valid as long as the parser.
    virtual const char* getDescription(bool hidden = false) = 0;

    /// Adds a handler, which the host keeps alive until it is removed or the parser is destroyed.
    /// Handlers are called in ascending order of their addresses. False if it is null, was there, or is
    /// this parser itself. Parsers that handle each other in a ring end an event with a std::exception.
    virtual bool addHandler(EventHandler* handler) = 0;

    /// Removes a handler. False if it was not there.
    virtual bool removeHandler(EventHandler* handler) = 0;

    virtual ~IParser() = default;
};

/// Makes a parser, which the host owns and releases with destroy. `flags` is a set of ParserFlags.
/// Returns 0, or 3 for a null `out` or when memory runs out, leaving the pointer at `out` untouched.
VORN_API int createParser(IParser** out, int flags = 0);

}  // namespace vorn_3_1

#pragma GCC diagnostic pop

#endif
