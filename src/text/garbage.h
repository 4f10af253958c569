// The garbage: where every text is kept whose character pointer the library hands out.
//
// Hosts get plain character pointers: in events, as errors, as the help, as values. Whoever hands a text out keeps it
// first. This is how getErrorDesc does it:
//
//     return garbage.init(lastError.c_str());     good until the parser is destroyed
//
// Every parser has one, and every result. It gives nothing back before it goes itself: that is what its name says. A
// text that is in it already is not kept again, so a host may ask for the same text any number of times.
#ifndef VORN_TEXT_GARBAGE_H
#define VORN_TEXT_GARBAGE_H

#include <string_view>

#include "text/text_arena.h"
#include "text/text_table.h"

namespace vorn_3_1::internal {

/// A set of texts. Pointers to them stay valid as long as the garbage; equal texts are one pointer.
class Garbage {
public:
    Garbage() = default;
    Garbage(const Garbage&) = delete;
    Garbage& operator=(const Garbage&) = delete;

    /// Keeps a copy of the text (null counts as "") and returns its pointer. Needs no memory for "".
    virtual const char* init(const char* text);

    /// The same for a text that may hold NUL characters.
    std::string_view keep(std::string_view text);

    /// The same for a text that is followed by a NUL and lives as long as the garbage: it is not copied.
    std::string_view adopt(std::string_view text);

private:
    struct KeptText {
        std::string_view key() const { return text; }

        std::string_view text;
    };

    template <class Copy>
    std::string_view kept(std::string_view text, Copy copy);

    TextArena arena;
    TextTable<KeptText> texts;
};

}  // namespace vorn_3_1::internal

#endif
