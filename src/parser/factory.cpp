// The one way for a host to get a parser.
#include <exception>

#include "parser/basic_parser.h"

namespace vorn_3_1 {

int createParser(IParser** out, int flags) {
    if (out == nullptr) return internal::exceptionCaught;
    try {
        *out = new BasicParser(flags);
        return 0;
    } catch (const std::exception&) {
        return internal::exceptionCaught;
    }
}

}  // namespace vorn_3_1
