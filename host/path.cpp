// The type of paths. Any text is one; whether it exists is for the host to find out. It has a file of its own since
// <filesystem> is heavy: only hosts that include vorn/host/path.h pay for it.
#include "vorn/host/path.h"

namespace vorn_3_1::host {

std::string Type<std::filesystem::path>::read(std::string_view text, std::filesystem::path& value) {
    value = text;
    return {};
}

std::string Type<std::filesystem::path>::show(const std::filesystem::path& value) { return value.string(); }

const char* Type<std::filesystem::path>::metavar() { return "PATH"; }

template class detail::TypedValues<std::filesystem::path>;

}  // namespace vorn_3_1::host
