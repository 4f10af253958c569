// The keeper of every text whose character pointer the library hands out.
#ifndef VORN_TEXT_GARBAGE_H
#define VORN_TEXT_GARBAGE_H

#include <string_view>

#include "text/text_arena.h"
#include "text/text_table.h"

namespace vorn_3_1::internal {

/// A set of texts. Pointers to them stay valid as long as the keeper; equal texts are one pointer.
class Garbage {
public:
    Garbage() = default;
    Garbage(const Garbage&) = delete;
    Garbage& operator=(const Garbage&) = delete;

    /// Keeps a copy of the text (null counts as "") and returns its pointer. Needs no memory for "".
    virtual const char* init(const char* text);

    /// The same for a text that may hold NUL characters.
    std::string_view keep(std::string_view text);

    /// The same for a text that is followed by a NUL and lives as long as the keeper: it is not copied.
    std::string_view adopt(std::string_view text);

private:
    std::string_view add(std::string_view text, std::uint32_t hash);

    TextArena arena;
    TextTable<TextEntry> texts;
};

}  // namespace vorn_3_1::internal

#endif
