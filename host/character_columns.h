// How wide a terminal shows a character.
#ifndef VORN_HOST_CHARACTER_COLUMNS_H
#define VORN_HOST_CHARACTER_COLUMNS_H

namespace vorn_3_1::host::detail {

/// 0 for a character that is drawn onto the one in front of it, 2 for one of East Asia's or a picture, else 1.
///
/// The C library knows as much, but only when the process has set a locale of UTF-8, which a library must not do; and
/// what help looks like is not to depend on it.
unsigned columnsOf(char32_t character);

}  // namespace vorn_3_1::host::detail

#endif
