// What can be wrong with a command line, as data and as a sentence; and where a value comes from.
#ifndef VORN_HOST_ERROR_H
#define VORN_HOST_ERROR_H

#if __cplusplus >= 201703L

#include <stdexcept>
#include <string>
#include <vector>

namespace vorn_3_1::host {

/// A declaration that contradicts itself or another one. The text says what to change.
class RegistrationError : public std::logic_error {
public:
    using std::logic_error::logic_error;
};

/// Where a value comes from.
struct Origin {
    enum class Layer {
        none,
        defaulted,
        settings,
        environment,
        commandLine
    };  // a later one replaces an earlier

    Layer layer = Layer::none;
    std::string place;  ///< The file, or the variable's name; empty for the command line itself.
    int line = 0;       ///< The line of the file, or the number of the argument; the first is 1.

    /// As a person would say it: "the default", "thumbs.conf:12", "THUMBS_QUALITY", "argument 5".
    std::string text() const;
};

/// One mistake. Every text is as it was typed; only text() makes it fit to be shown.
struct Error {
    enum class Kind {
        unknownOption,
        ambiguousOption,
        unknownCommand,
        missingCommand,
        missingValue,
        unexpectedValue,
        invalidValue,
        outOfRange,
        notAllowed,
        ambiguousValue,
        emptyItem,
        refused,
        missingOption,
        missingArgument,
        tooManyArguments,
        conflict,
        missingCompanion,
        unreadableFile,
        internal
    };

    Kind kind = Kind::internal;
    std::string option;                   ///< The first name of the option that it is about, if any.
    std::string argument;                 ///< The argument as typed, if any.
    std::string value;                    ///< The value, or the item of a list, that is refused.
    std::string reason;                   ///< Why, if there is more to say than the kind does.
    std::vector<std::string> candidates;  ///< Names or values that may have been meant, the best first.
    Origin origin;                        ///< Where it stands; nowhere if something is missing.
    std::string libraryText;              ///< The library's own words, where it has some.
    std::string sentence;                 ///< What text() says after the place.

    /// One line for people, without the program's name: the place if it is not the command line, and what is wrong.
    /// Control characters are escaped, and long texts cut in the middle.
    std::string text() const;
};

}  // namespace vorn_3_1::host

#endif  // C++17

#endif
